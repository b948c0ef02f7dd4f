// Runs every registered benchmark and prints, after Google Benchmark's own report, a table of
// this library against its peers: time per operation of each, and the ratio of this library's
// time to the fastest peer's. With --zt_table_json=FILE the table is also written as JSON.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace {

// One row of the table: this library's benchmark and the peers' benchmarks it is measured
// against (a peer may offer several types; its fastest counts). A target of 0 means none.
struct Row {
    const char* title;
    const char* ours;
    std::vector<const char*> peers;
    double target;
};

const char* const kPeers[] = {"eigen", "glm", "imath"};

const std::vector<Row>& Rows() {
    static const std::vector<Row> rows = {
        {"4x4 inverse, general",
         "Inverse4General/ztlinear-Matrix4f",
         {"Inverse4General/eigen-Matrix4d", "Inverse4General/glm-dmat4",
          "Inverse4General/imath-M44d"},
         1.5},
        {"4x4 inverse, affine matrix",
         "Inverse4Affine/ztlinear-Matrix4f",
         {"Inverse4Affine/eigen-Matrix4d", "Inverse4Affine/eigen-Affine3d",
          "Inverse4Affine/glm-dmat4", "Inverse4Affine/imath-M44d"},
         0},
        {"affine inverse (ZtLAffine3f)",
         "Inverse4Affine/ztlinear-Affine3f",
         {"Inverse4Affine/eigen-Matrix4d", "Inverse4Affine/eigen-Affine3d",
          "Inverse4Affine/glm-dmat4", "Inverse4Affine/imath-M44d"},
         0},
        {"3x3 inverse",
         "Inverse3/ztlinear-Matrix3f",
         {"Inverse3/eigen-Matrix3d", "Inverse3/glm-dmat3", "Inverse3/imath-M33d"},
         0},
        {"4x4 product",
         "Product4/ztlinear-Matrix4f",
         {"Product4/eigen-Matrix4d", "Product4/glm-dmat4", "Product4/imath-M44d"},
         0},
        {"3x3 product",
         "Product3/ztlinear-Matrix3f",
         {"Product3/eigen-Matrix3d", "Product3/glm-dmat3", "Product3/imath-M33d"},
         1.0},
        {"point through 4x4, divide",
         "PointProjective/ztlinear-Matrix4f",
         {"PointProjective/eigen-Matrix4d", "PointProjective/glm-dmat4",
          "PointProjective/imath-M44d"},
         0},
        {"point through affine map",
         "PointAffine/ztlinear-Affine3f",
         {"PointAffine/eigen-Affine3d", "PointAffine/glm-dmat4x3", "PointAffine/imath-M44d"},
         1.0},
        {"point through ZtLTransform3f",
         "PointTransform/ztlinear-Transform3f",
         {"PointAffine/eigen-Affine3d", "PointAffine/glm-dmat4x3", "PointAffine/imath-M44d"},
         0},
        {"quaternion product",
         "QuatProduct/ztlinear-Rotation3f",
         {"QuatProduct/eigen-Quaterniond", "QuatProduct/glm-dquat", "QuatProduct/imath-Quatd"},
         1.2},
        {"quaternion product, peers normalise",
         "QuatProduct/ztlinear-Rotation3f",
         {"QuatProductNormalized/eigen-Quaterniond", "QuatProductNormalized/glm-dquat",
          "QuatProductNormalized/imath-Quatd"},
         0},
        {"quaternion to matrix",
         "QuatToMatrix/ztlinear-Rotation3f",
         {"QuatToMatrix/eigen-Quaterniond", "QuatToMatrix/glm-dquat", "QuatToMatrix/imath-Quatd"},
         1.2},
        {"Slerp",
         "Slerp/ztlinear-Rotation3f",
         {"Slerp/eigen-Quaterniond", "Slerp/glm-dquat", "Slerp/imath-Quatd"},
         1.2},
        {"box through affine map",
         "BoxTransform/ztlinear-Affine3f",
         {"BoxTransform/eigen-AlignedBox3d", "BoxTransform/imath-Box3d"},
         1.0},
        {"box through ZtLTransform3f",
         "BoxTransform/ztlinear-Transform3f",
         {"BoxTransform/eigen-AlignedBox3d", "BoxTransform/imath-Box3d"},
         0},
        {"scene chains, depth 8",
         "SceneChains/ztlinear-Transform3f",
         {"SceneChains/eigen-Matrix4d", "SceneChains/eigen-Affine3d", "SceneChains/glm-dmat4",
          "SceneChains/imath-M44d"},
         1.0},
        {"scene chains, in place (MultLeft)",
         "SceneChains/ztlinear-Transform3f-MultLeft",
         {"SceneChains/eigen-Matrix4d", "SceneChains/eigen-Affine3d", "SceneChains/glm-dmat4",
          "SceneChains/imath-M44d"},
         1.0},
        {"box culling (CanCull)",
         "CanCull/ztlinear-PickFrustum3f",
         {"CanCull/imath-FrustumTest"},
         0},
        {"FindNearest, 1M triangles", "FindNearest/ztlinear-PickFrustum3f", {}, 0},
    };
    return rows;
}

// Collects nanoseconds per operation (from the items rate, in CPU time) of each benchmark: the
// median when repetitions are run, else the single run.
class TableReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
            if (run.run_type == Run::RT_Aggregate && !median) continue;
            const auto it = run.counters.find("items_per_second");
            if (it == run.counters.end() || !(it->second.value > 0)) continue;
            const std::string name = run.run_name.str();
            if (median || m_ns.find(name) == m_ns.end() || !m_median[name]) {
                m_ns[name] = 1e9 / it->second.value;
                m_median[name] = median;
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void PrintTable(const char* jsonPath) const {
        std::printf("\n%-36s %10s %10s %10s %10s %8s %7s\n", "operation (ns per op)", "ztlinear",
                    "Eigen", "GLM", "Imath", "ratio", "target");
        std::FILE* json = jsonPath ? std::fopen(jsonPath, "w") : nullptr;
        if (json) std::fprintf(json, "{\n  \"unit\": \"ns per operation\",\n  \"rows\": [");
        bool firstRow = true;
        for (const Row& row : Rows()) {
            const double ours = Find(row.ours);
            double peer[3] = {NAN, NAN, NAN};
            for (const char* name : row.peers) {
                const double t = Find(name);
                if (std::isnan(t)) continue;  // not built or not run
                for (int k = 0; k < 3; ++k)
                    if (std::strncmp(name + std::strcspn(name, "/") + 1, kPeers[k],
                                     std::strlen(kPeers[k])) == 0 &&
                        !(peer[k] <= t))
                        peer[k] = t;
            }
            double fastest = NAN;
            for (double t : peer)
                if (!std::isnan(t) && !(fastest <= t)) fastest = t;
            const double ratio = ours / fastest;
            if (std::isnan(ours) && std::isnan(fastest)) continue;
            std::printf("%-36s %s %s %s %s %s %7s\n", row.title, Cell(ours).c_str(),
                        Cell(peer[0]).c_str(), Cell(peer[1]).c_str(), Cell(peer[2]).c_str(),
                        RatioCell(ratio).c_str(), row.target > 0 ? Target(row.target).c_str() : "");
            if (json) {
                std::fprintf(json,
                             "%s\n    {\"operation\": \"%s\", \"ztlinear\": %s, \"eigen\": %s, "
                             "\"glm\": %s, \"imath\": %s, \"ratio\": %s, \"target\": %s}",
                             firstRow ? "" : ",", row.title, Json(ours).c_str(),
                             Json(peer[0]).c_str(), Json(peer[1]).c_str(), Json(peer[2]).c_str(),
                             Json(ratio).c_str(),
                             row.target > 0 ? Json(row.target).c_str() : "null");
                firstRow = false;
            }
        }
        const double nearest = Find("FindNearest/ztlinear-PickFrustum3f");
        if (!std::isnan(nearest))
            std::printf("FindNearest throughput: %.3g triangles per second\n", 1e9 / nearest);
        std::printf("ratio: ztlinear time / fastest peer time (below 1: ztlinear is faster)\n");
        if (json) {
            std::fprintf(json, "\n  ],\n  \"benchmarks\": {");
            bool first = true;
            for (const auto& entry : m_ns) {
                std::fprintf(json, "%s\n    \"%s\": %s", first ? "" : ",", entry.first.c_str(),
                             Json(entry.second).c_str());
                first = false;
            }
            std::fprintf(json, "\n  }\n}\n");
            std::fclose(json);
        }
    }

private:
    double Find(const char* name) const {
        const auto it = m_ns.find(name);
        return it == m_ns.end() ? NAN : it->second;
    }
    static std::string Format(const char* fmt, double v) {
        char buf[64];
        std::snprintf(buf, sizeof buf, fmt, v);
        return buf;
    }
    static std::string Cell(double ns) {
        return std::isnan(ns) ? std::string("         -") : Format("%10.2f", ns);
    }
    static std::string RatioCell(double r) {
        return std::isnan(r) ? std::string("       -") : Format("%8.2f", r);
    }
    static std::string Target(double t) { return Format("<= %.1f", t); }
    static std::string Json(double v) { return std::isnan(v) ? "null" : Format("%.4g", v); }

    std::map<std::string, double> m_ns;
    std::map<std::string, bool> m_median;
};

}  // namespace

int main(int argc, char** argv) {
    // Our own flag is taken out before Google Benchmark sees the arguments.
    const char* jsonPath = nullptr;
    std::vector<char*> args;
    const char* const flag = "--zt_table_json=";
    for (int i = 0; i < argc; ++i) {
        if (std::strncmp(argv[i], flag, std::strlen(flag)) == 0)
            jsonPath = argv[i] + std::strlen(flag);
        else
            args.push_back(argv[i]);
    }
    int count = static_cast<int>(args.size());
    benchmark::Initialize(&count, args.data());
    if (benchmark::ReportUnrecognizedArguments(count, args.data())) return 1;
    TableReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintTable(jsonPath);
    benchmark::Shutdown();
    return 0;
}
