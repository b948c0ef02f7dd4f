// Loading Wavefront OBJ files through tinyobjloader's callback reader.
//
// tinyobjloader does the reading; ztpick adds what it leaves out: the line number of each
// statement (counted from how far the reader has got through the text when it calls back) and
// strictness. tinyobjloader reads a number that is not one as 0 and a face index that is not a
// number as "missing"; ztpick rejects such statements, and face indices that point at no vertex
// read so far, with the file and line.
#include "ZtPickScene.h"

#include <tiny_obj_loader.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <streambuf>

namespace {

// A read-only stream buffer over text in memory that tells how far its reader has got.
class TextBuffer : public std::streambuf {
public:
    explicit TextBuffer(std::string* text) {
        char* begin = &(*text)[0];
        setg(begin, begin, begin + text->size());
    }
    std::size_t GetOffset() const { return static_cast<std::size_t>(gptr() - eback()); }
};

struct Reader {
    std::string path;
    const std::string* text;
    const TextBuffer* buffer;
    // Line bookkeeping: the line number of the text at offset scanned.
    std::size_t scanned = 0;
    std::size_t line = 1;
    ZtPickMesh mesh;
    std::string error;

    // The number and the text of the statement the reader has just read: the line that ends
    // just before the reader's position.
    std::size_t CurrentLine(std::string* statement) {
        std::size_t end = buffer->GetOffset();
        if (end > 0 && (*text)[end - 1] == '\n') --end;
        for (; scanned < end; ++scanned) {
            if ((*text)[scanned] == '\n') ++line;
        }
        if (statement) {
            const std::size_t start = text->rfind('\n', end == 0 ? 0 : end - 1);
            const std::size_t from = (start == std::string::npos || start >= end) ? 0 : start + 1;
            *statement = text->substr(from, end - from);
            while (!statement->empty() && statement->back() == '\r') statement->pop_back();
        }
        return line;
    }

    void Fail(const std::string& what) {
        if (!error.empty()) return;
        std::string statement;
        const std::size_t n = CurrentLine(&statement);
        error = path + ":" + std::to_string(n) + ": " + what + ": '" + statement + "'";
    }
};

// The whitespace-separated words of a statement after its keyword.
std::vector<std::string> Arguments(const std::string& statement) {
    std::istringstream in(statement);
    std::vector<std::string> words;
    std::string w;
    in >> w;
    while (in >> w) words.push_back(w);
    return words;
}

bool IsNumber(const std::string& word) {
    const char* begin = word.c_str();
    char* end = nullptr;
    errno = 0;
    const double v = std::strtod(begin, &end);
    return end != begin && *end == '\0' && errno == 0 && std::isfinite(v);
}

// v x y z [w] or v x y z r g b: every word a finite number.
void OnVertex(void* user, tinyobj::real_t x, tinyobj::real_t y, tinyobj::real_t z,
              tinyobj::real_t) {
    Reader* r = static_cast<Reader*>(user);
    if (!r->error.empty()) return;
    std::string statement;
    r->CurrentLine(&statement);
    const std::vector<std::string> words = Arguments(statement);
    bool ok = words.size() == 3 || words.size() == 4 || words.size() == 6 || words.size() == 7;
    for (const std::string& w : words) ok = ok && IsNumber(w);
    if (!ok) {
        r->Fail("malformed vertex (expected 3 or 4 numbers)");
        return;
    }
    r->mesh.positions.push_back(ZtLPos3f(x, y, z));
}

// f a b c ...: at least three corners, each index refers to a vertex read before.
void OnFace(void* user, tinyobj::index_t* corners, int count) {
    Reader* r = static_cast<Reader*>(user);
    if (!r->error.empty()) return;
    if (count < 3) {
        r->Fail("a face needs at least 3 vertices");
        return;
    }
    std::string statement;
    r->CurrentLine(&statement);
    for (const std::string& w : Arguments(statement)) {
        // The vertex part of v, v/t, v/t/n or v//n must be a whole number.
        const std::string v = w.substr(0, w.find('/'));
        char* end = nullptr;
        errno = 0;
        const long value = std::strtol(v.c_str(), &end, 10);
        if (v.empty() || *end != '\0' || errno != 0 || value > 2147483647L ||
            value < -2147483647L) {
            r->Fail("malformed face vertex '" + w + "'");
            return;
        }
    }
    const long long known = static_cast<long long>(r->mesh.positions.size());
    std::uint32_t resolved[3] = {0, 0, 0};
    for (int k = 0; k < count; ++k) {
        // OBJ indices count from 1; negative ones count back from the last vertex read.
        const long long i = corners[k].vertex_index;
        const long long at = i > 0 ? i - 1 : known + i;
        if (i == 0 || at < 0 || at >= known) {
            r->Fail("vertex index " + std::to_string(i) + " out of range (" +
                    std::to_string(known) + " vertices read so far)");
            return;
        }
        // A fan from the first corner: (0, k - 1, k) for k >= 2.
        const std::uint32_t index = static_cast<std::uint32_t>(at);
        if (k == 0) {
            resolved[0] = index;
        } else if (k == 1) {
            resolved[1] = index;
        } else {
            resolved[2] = index;
            r->mesh.indices.insert(r->mesh.indices.end(), {resolved[0], resolved[1], resolved[2]});
            resolved[1] = index;
        }
    }
}

std::string BaseName(const std::string& path) {
    const std::size_t slash = path.find_last_of("/\\");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace

bool ZtPickLoadObj(const std::string& path, ZtPickScene* scene, std::string* error) {
    // Read whole with C streams: they report a directory or a read error as an error code.
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) {
        *error = path + ": cannot open the file (" + std::strerror(errno) + ")";
        return false;
    }
    std::string text;
    char chunk[65536];
    std::size_t n;
    while ((n = std::fread(chunk, 1, sizeof chunk, file)) > 0) text.append(chunk, n);
    const bool failed = std::ferror(file) != 0;
    const int readError = errno;
    std::fclose(file);
    if (failed) {
        *error = path + ": cannot read the file (" + std::strerror(readError) + ")";
        return false;
    }
    TextBuffer buffer(&text);
    std::istream in(&buffer);
    Reader reader;
    reader.path = path;
    reader.text = &text;
    reader.buffer = &buffer;
    reader.mesh.name = BaseName(path);

    tinyobj::callback_t callbacks;
    callbacks.vertex_cb = OnVertex;
    callbacks.index_cb = OnFace;
    std::string warnings;
    std::string errors;
    const bool ok =
        tinyobj::LoadObjWithCallback(in, callbacks, &reader, nullptr, &warnings, &errors);
    if (!reader.error.empty()) {
        *error = reader.error;
        return false;
    }
    if (!ok || !errors.empty()) {
        *error = path + ": " + (errors.empty() ? std::string("cannot read the file") : errors);
        while (!error->empty() && (error->back() == '\n' || error->back() == ' '))
            error->pop_back();
        return false;
    }
    if (reader.mesh.indices.empty()) {
        *error = path + ": no faces (an OBJ file for ztpick needs at least one 'f' statement)";
        return false;
    }
    reader.mesh.Finish();
    scene->meshes.push_back(std::move(reader.mesh));
    scene->AddModel(scene->meshes.back().name, static_cast<std::uint32_t>(scene->meshes.size() - 1),
                    ZtLTransform3f());
    return true;
}
