#include <ztutil/ZtUComponent.h>
#include <ztutil/ZtUError.h>
#include <ztutil/ZtUOption.h>
#include <ztutil/ZtUStringBuffer.h>

#include <cmath>
#include <cstdarg>
#include <map>
#include <mutex>
#include <vector>

namespace {

// The registry's objects are created on first use and never destroyed, so that they outlive
// every static object of the host that might still use options during shut-down.
std::recursive_mutex& RegistryMutex() {
    static std::recursive_mutex* mutex = new std::recursive_mutex;
    return *mutex;
}

using Guard = std::lock_guard<std::recursive_mutex>;

void PostError(ZtUOption::ErrorCode code, const ZtUOptionSet* set, const char* format, ...)
    ZTU_PRINTF_FORMAT(3, 4);

void PostError(ZtUOption::ErrorCode code, const ZtUOptionSet* set, const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    ZtUStringBuffer message;
    message.FormatV(format, args);
    va_end(args);
    ZtUError::Post(ZtUSysError::Error, ZtUOption::GetComponent(), code,
                   const_cast<ZtUOptionSet*>(set), "%s", message.GetString());
}

std::string Safe(const char* text) { return text ? text : ""; }

// Converts value to what an option of the kind stores; false when it does not fit.
bool Fit(ZtUOptionSet::Kind kind, const ZtUData& value, ZtUData* out) {
    switch (kind) {
        case ZtUOptionSet::KindFloat:
        case ZtUOptionSet::KindLinearFloat:
            if (!value.IsNumber()) return false;
            *out = ZtUData(value.GetFloat());
            return true;
        case ZtUOptionSet::KindInteger: {
            const double v = value.GetFloat();
            if (!value.IsNumber() || !(v >= -2147483648.0 && v <= 2147483647.0) ||
                std::floor(v) != v)
                return false;
            *out = ZtUData(static_cast<std::int32_t>(v));
            return true;
        }
        case ZtUOptionSet::KindString:
            *out = value;
            return value.IsString();
        case ZtUOptionSet::KindPoint2D:
            *out = value;
            return value.IsPoint2D();
        case ZtUOptionSet::KindPoint3D:
            *out = value;
            return value.IsPoint3D();
    }
    return false;
}

}  // namespace

// ---------------------------------------------------------------------------------------------

ZtUOptionValidator::~ZtUOptionValidator() = default;

bool ZtUOptionRangeValidator::Check(const ZtUData& value, std::string* reason) const {
    int count = 1;
    const double* v = nullptr;
    double number = value.GetFloat();
    if (value.IsNumber()) v = &number;
    if (value.IsPoint2D()) v = value.GetPoint2D(), count = 2;
    if (value.IsPoint3D()) v = value.GetPoint3D(), count = 3;
    for (int i = 0; v && i < count; ++i) {
        if (!(v[i] >= m_min && v[i] <= m_max)) {
            ZtUStringBuffer text;
            text.Format("outside [%.17g, %.17g]", m_min, m_max);
            *reason = text.Str();
            return false;
        }
    }
    return true;
}

ZtUOptionLock::ZtUOptionLock() { RegistryMutex().lock(); }
ZtUOptionLock::~ZtUOptionLock() { RegistryMutex().unlock(); }

// ---------------------------------------------------------------------------------------------

struct ZtUOptionSet::Impl {
    struct Option {
        Kind kind;
        ZtUData value, defaultValue;
        Profile profile;
        unsigned int flags;
        std::string help;
        const ZtUOptionValidator* validator;
    };
    struct SubSet {
        std::unique_ptr<ZtUOptionSet> set;
        Profile profile;
        unsigned int flags;
        std::string className;
    };
    std::map<std::string, Option> options;
    std::map<std::string, SubSet> sets;
    const ZtUOptionSet* parent = nullptr;
    std::string name;
    bool missing = false;  // the stand-in for missing sets
    bool isRoot = false;

    // Splits "a.b.c" into the set at "a.b" below self (null when missing) and "c".
    static ZtUOptionSet* Walk(ZtUOptionSet* self, const std::string& path, std::string* last) {
        std::size_t start = 0;
        for (std::size_t dot; (dot = path.find('.', start)) != std::string::npos; start = dot + 1) {
            const auto it = self->m_impl->sets.find(path.substr(start, dot - start));
            if (it == self->m_impl->sets.end()) return nullptr;
            self = it->second.set.get();
        }
        *last = path.substr(start);
        return self;
    }
    // The option at a dotted path below self, or null.
    static Option* Find(const ZtUOptionSet* self, const char* name) {
        std::string last;
        ZtUOptionSet* owner = Walk(const_cast<ZtUOptionSet*>(self), Safe(name), &last);
        if (!owner) return nullptr;
        const auto it = owner->m_impl->options.find(last);
        return it == owner->m_impl->options.end() ? nullptr : &it->second;
    }
    static void ResetAll(ZtUOptionSet* set) {
        for (auto& o : set->m_impl->options) o.second.value = o.second.defaultValue;
        for (auto& s : set->m_impl->sets) ResetAll(s.second.set.get());
    }
    std::string PathOf(const char* child) const {
        std::string path = Path();
        return path.empty() ? Safe(child) : path + "." + Safe(child);
    }
    std::string Path() const {
        if (!parent) return missing ? "<missing set>" : "";
        const std::string up = parent->m_impl->Path();
        return up.empty() ? name : up + "." + name;
    }

    static ZtUExOptionSet* Root() {
        static ZtUExOptionSet* root = [] {
            ZtUExOptionSet* set = new ZtUExOptionSet;
            set->m_impl->isRoot = true;
            return set;
        }();
        return root;
    }
    static ZtUOptionSet* Missing() {
        static ZtUExOptionSet* stand = [] {
            ZtUExOptionSet* set = new ZtUExOptionSet;
            set->m_impl->missing = true;
            return set;
        }();
        return stand;
    }
    // Sets refused by DefineSet: kept so that their creators' pointers stay valid.
    static void KeepAside(ZtUOptionSet* set) {
        static auto* aside = new std::vector<std::unique_ptr<ZtUOptionSet>>;
        aside->emplace_back(set);
    }
};

namespace {

bool ValidName(const std::string& name) {
    return !name.empty() && name.front() != '.' && name.back() != '.' &&
           name.find("..") == std::string::npos;
}

}  // namespace

ZtUOptionSet::ZtUOptionSet() : m_impl(new Impl) {}

ZtUOptionSet::~ZtUOptionSet() = default;

bool ZtUOptionSet::IsValid() const { return !m_impl->missing; }

std::string ZtUOptionSet::GetPath() const {
    Guard guard(RegistryMutex());
    return m_impl->Path();
}

bool ZtUOptionSet::Define(const char* name, Kind kind, const ZtUData& defaultValue, Profile profile,
                          unsigned int flags, const char* help,
                          const ZtUOptionValidator* validator) {
    Guard guard(RegistryMutex());
    const std::string path = m_impl->PathOf(name);
    std::string last;
    ZtUOptionSet* owner = m_impl->missing ? nullptr : Impl::Walk(this, Safe(name), &last);
    if (!ValidName(Safe(name)) || !owner) {
        PostError(ZtUOption::InvalidName, this,
                  "cannot define option '%s': invalid name or no such set", path.c_str());
        return false;
    }
    if (owner->m_impl->options.count(last) || owner->m_impl->sets.count(last)) {
        PostError(ZtUOption::Duplicate, owner, "option '%s' is already defined", path.c_str());
        return false;
    }
    ZtUData stored;
    if (!Fit(kind, defaultValue, &stored)) {
        PostError(ZtUOption::WrongKind, owner, "default %s does not fit option '%s'",
                  defaultValue.Describe().c_str(), path.c_str());
        return false;
    }
    owner->m_impl->options.emplace(
        last, Impl::Option{kind, stored, stored, profile, flags, Safe(help), validator});
    return true;
}

bool ZtUOptionSet::AddSubSet(const char* name, ZtUOptionSet* set, Profile profile,
                             unsigned int flags, const char* className) {
    Guard guard(RegistryMutex());
    const std::string path = m_impl->PathOf(name);
    if (!set || set->m_impl->parent || set->m_impl->isRoot || set->m_impl->missing || set == this) {
        PostError(ZtUOption::InvalidName, this,
                  "cannot register set '%s': no set or already registered", path.c_str());
        return false;
    }
    std::string last;
    ZtUOptionSet* owner = m_impl->missing ? nullptr : Impl::Walk(this, Safe(name), &last);
    const char* problem = nullptr;
    ZtUOption::ErrorCode code = ZtUOption::InvalidName;
    if (!ValidName(Safe(name)) || !owner) {
        problem = "invalid name or no such parent set";
    } else if (owner->m_impl->options.count(last) || owner->m_impl->sets.count(last)) {
        problem = "the name is already defined";
        code = ZtUOption::Duplicate;
    }
    if (problem) {
        PostError(code, this, "cannot register set '%s': %s", path.c_str(), problem);
        Impl::KeepAside(set);
        return false;
    }
    set->m_impl->parent = owner;
    set->m_impl->name = last;
    owner->m_impl->sets.emplace(
        last, Impl::SubSet{std::unique_ptr<ZtUOptionSet>(set), profile, flags, Safe(className)});
    return true;
}

ZtUOptionSet* ZtUOptionSet::GetSubOptions(const char* name) {
    Guard guard(RegistryMutex());
    if (m_impl->missing) return this;
    std::string last;
    ZtUOptionSet* owner = Impl::Walk(this, Safe(name), &last);
    if (owner) {
        const auto it = owner->m_impl->sets.find(last);
        if (it != owner->m_impl->sets.end()) return it->second.set.get();
    }
    PostError(ZtUOption::MissingOption, this, "no option set '%s'", m_impl->PathOf(name).c_str());
    return Impl::Missing();
}

bool ZtUOptionSet::Has(const char* name) const {
    Guard guard(RegistryMutex());
    std::string last;
    const ZtUOptionSet* owner = Impl::Walk(const_cast<ZtUOptionSet*>(this), Safe(name), &last);
    return owner && (owner->m_impl->options.count(last) || owner->m_impl->sets.count(last));
}

ZtUData ZtUOptionSet::GetValue(const char* name) const {
    Guard guard(RegistryMutex());
    if (m_impl->missing) return ZtUData();
    if (const Impl::Option* option = Impl::Find(this, name)) return option->value;
    PostError(ZtUOption::MissingOption, this, "no option '%s'", m_impl->PathOf(name).c_str());
    return ZtUData();
}

bool ZtUOptionSet::SetValue(const char* name, const ZtUData& value) {
    Guard guard(RegistryMutex());
    if (m_impl->missing) return false;
    const std::string path = m_impl->PathOf(name);
    Impl::Option* option = Impl::Find(this, name);
    if (!option) {
        PostError(ZtUOption::MissingOption, this, "no option '%s'", path.c_str());
        return false;
    }
    ZtUData stored;
    if (!Fit(option->kind, value, &stored)) {
        PostError(ZtUOption::WrongKind, this, "value %s does not fit option '%s'",
                  value.Describe().c_str(), path.c_str());
        return false;
    }
    std::string reason;
    if (option->validator && !option->validator->Check(stored, &reason)) {
        PostError(ZtUOption::Refused, this, "value %s refused for option '%s': %s",
                  stored.Describe().c_str(), path.c_str(), reason.c_str());
        return false;
    }
    option->value = stored;
    return true;
}

namespace {
// Reads a value of the expected kinds (bit mask of 1 << Kind) or posts and yields empty.
ZtUData ReadAs(const ZtUOptionSet* set, const char* name, unsigned int kinds, const char* what) {
    const ZtUData value = set->GetValue(name);
    const ZtUOptionSet::Kind kind = value.IsInteger()   ? ZtUOptionSet::KindInteger
                                    : value.IsFloat()   ? ZtUOptionSet::KindFloat
                                    : value.IsString()  ? ZtUOptionSet::KindString
                                    : value.IsPoint2D() ? ZtUOptionSet::KindPoint2D
                                                        : ZtUOptionSet::KindPoint3D;
    if (value.IsEmpty()) return value;  // missing: already posted
    if (kinds & (1u << kind)) return value;
    PostError(ZtUOption::WrongKind, set, "option '%s' is not %s",
              (set->GetPath().empty() ? Safe(name) : set->GetPath() + "." + Safe(name)).c_str(),
              what);
    return ZtUData();
}
}  // namespace

double ZtUOptionSet::GetFloat(const char* name) const {
    Guard guard(RegistryMutex());
    return ReadAs(this, name, 1u << KindFloat | 1u << KindInteger, "a number").GetFloat();
}

double ZtUOptionSet::GetLinearFloat(const char* name) const { return GetFloat(name); }

std::int32_t ZtUOptionSet::GetInteger(const char* name) const {
    Guard guard(RegistryMutex());
    return ReadAs(this, name, 1u << KindInteger, "an integer").GetInteger();
}

std::string ZtUOptionSet::GetString(const char* name) const {
    Guard guard(RegistryMutex());
    return ReadAs(this, name, 1u << KindString, "a string").GetString();
}

void ZtUOptionSet::ResetToDefaults(const char* name) {
    Guard guard(RegistryMutex());
    if (m_impl->missing) return;
    if (!name || !*name) return Impl::ResetAll(this);
    if (Impl::Option* option = Impl::Find(this, name)) {
        option->value = option->defaultValue;
        return;
    }
    std::string last;
    if (ZtUOptionSet* owner = Impl::Walk(this, name, &last)) {
        const auto it = owner->m_impl->sets.find(last);
        if (it != owner->m_impl->sets.end()) return Impl::ResetAll(it->second.set.get());
    }
    PostError(ZtUOption::MissingOption, this, "cannot reset '%s': no such option or set",
              m_impl->PathOf(name).c_str());
}

// ---------------------------------------------------------------------------------------------

void* ZtUExOptionSet::operator new(std::size_t size) { return ::operator new(size); }
void ZtUExOptionSet::operator delete(void* p) noexcept { ::operator delete(p); }

bool ZtUOption::DefineSet(const char* path, ZtUOptionSet* set, ZtUOptionSet::Profile profile,
                          unsigned int flags, const char* className) {
    return GetRoot()->DefineSet(path, set, profile, flags, className);
}

ZtUOptionSet* ZtUOption::GetSet(const char* path, const ZtUOptionLock&) {
    return GetRoot()->GetSubOptions(path);
}

void ZtUOption::ResetToDefaults(const char* path) { GetRoot()->ResetToDefaults(path); }

ZtUExOptionSet* ZtUOption::GetRoot() { return ZtUOptionSet::Impl::Root(); }

ZtUComponent* ZtUOption::GetComponent() {
    static ZtUComponent* component = [] {
        ZtUComponent* c = new ZtUComponent;
        c->Initialise("ZtUOption", "ztutil option registry");
        return c;
    }();
    return component;
}
