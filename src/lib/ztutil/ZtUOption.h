#ifndef ZTUTIL_ZTUOPTION_H
#define ZTUTIL_ZTUOPTION_H

#include <ztutil/ZtUData.h>
#include <ztutil/ZtUExport.h>

#include <cstddef>
#include <memory>
#include <string>

class ZtUComponent;
class ZtUExOptionSet;

// The process-wide option registry: named options grouped in nested sets, addressed by dotted
// paths such as "view.background.red".
//
// An option has a kind (integer, float, linear float, string or 2D/3D point), a default and a
// current value, a profile and flag word kept for the host, a help text and an optional
// validator. A linear float is a length: it is stored like a float, and the kind tells the host
// that it is subject to its display units.
//
// Locking: one recursive lock guards the whole registry. Every operation below takes it for its
// own duration; a caller that reads or writes several values as one step holds a ZtUOptionLock
// around them (and must, around the use of a set pointer obtained from ZtUOption::GetSet).
//
// Failures are posted through ZtUError (severity Error, component ZtUOption::GetComponent(), the
// code one of ZtUOption::ErrorCode, the set as data) and never crash: reading a missing option
// yields the default of the kind asked for (0, "" or an empty datum), a missing set is an empty
// stand-in whose reads yield defaults and whose writes do nothing, a value refused by its
// validator or of the wrong kind leaves the old value. Sets are never deleted while the process
// runs, so set pointers stay valid.

// A check of the values an option may take. Validators are not owned by the options that use
// them and must outlive them (typically static objects).
class ZTU_EXPORT ZtUOptionValidator {
public:
    virtual ~ZtUOptionValidator();
    // True when value may be stored; otherwise *reason (never null) may say why.
    virtual bool Check(const ZtUData& value, std::string* reason) const = 0;
};

// Accepts numbers (and every coordinate of points) within [min, max].
class ZTU_EXPORT ZtUOptionRangeValidator : public ZtUOptionValidator {
public:
    ZtUOptionRangeValidator(double min, double max) : m_min(min), m_max(max) {}
    bool Check(const ZtUData& value, std::string* reason) const override;

private:
    double m_min, m_max;
};

// Holds the registry's lock for its lifetime (recursive: a thread may nest locks).
class ZTU_EXPORT ZtUOptionLock {
public:
    ZtUOptionLock();
    ~ZtUOptionLock();
    ZtUOptionLock(const ZtUOptionLock&) = delete;
    ZtUOptionLock& operator=(const ZtUOptionLock&) = delete;
};

// A set of options and sub-sets. Names inside a set may be dotted paths through its sub-sets.
class ZTU_EXPORT ZtUOptionSet {
public:
    // The host's settings store that persists an option; kept and reported, not interpreted.
    enum Profile { ProfileNone = 0, ProfileUser = 1, ProfileProject = 2, ProfileSession = 3 };
    // The kinds of options.
    enum Kind { KindInteger, KindFloat, KindLinearFloat, KindString, KindPoint2D, KindPoint3D };

    ZtUOptionSet();
    virtual ~ZtUOptionSet();
    ZtUOptionSet(const ZtUOptionSet&) = delete;
    ZtUOptionSet& operator=(const ZtUOptionSet&) = delete;

    // Define an option with its default (the current value starts as the default). A name that
    // is already defined is posted and the existing option kept; returns whether it was defined.
    bool Define(const char* name, Kind kind, const ZtUData& defaultValue, Profile profile,
                unsigned int flags, const char* help, const ZtUOptionValidator* validator);
    bool DefineFloat(const char* name, double defaultValue, Profile profile, unsigned int flags,
                     const char* help, const ZtUOptionValidator* validator) {
        return Define(name, KindFloat, defaultValue, profile, flags, help, validator);
    }
    bool DefineLinearFloat(const char* name, double defaultValue, Profile profile,
                           unsigned int flags, const char* help,
                           const ZtUOptionValidator* validator) {
        return Define(name, KindLinearFloat, defaultValue, profile, flags, help, validator);
    }
    bool DefineInteger(const char* name, std::int32_t defaultValue, Profile profile,
                       unsigned int flags, const char* help, const ZtUOptionValidator* validator) {
        return Define(name, KindInteger, defaultValue, profile, flags, help, validator);
    }
    bool DefineString(const char* name, const char* defaultValue, Profile profile,
                      unsigned int flags, const char* help, const ZtUOptionValidator* validator) {
        return Define(name, KindString, defaultValue, profile, flags, help, validator);
    }

    // The sub-set at name; a missing one is posted and yields the empty stand-in.
    ZtUOptionSet* GetSubOptions(const char* name);

    // The current value; a missing option is posted and yields an empty datum.
    ZtUData GetValue(const char* name) const;
    // Stores value if the option exists, the kind fits (a number for the float kinds and the
    // integer kind, which takes integral values only) and the validator accepts it; otherwise
    // posts and keeps the old value. Returns whether it was stored.
    bool SetValue(const char* name, const ZtUData& value);

    // Typed access: a missing option or one of another kind is posted and yields 0 (or "").
    // The float getters also read integer options.
    double GetFloat(const char* name) const;
    double GetLinearFloat(const char* name) const;
    std::int32_t GetInteger(const char* name) const;
    std::string GetString(const char* name) const;
    bool SetFloat(const char* name, double value) { return SetValue(name, ZtUData(value)); }
    bool SetLinearFloat(const char* name, double value) { return SetValue(name, ZtUData(value)); }
    bool SetInteger(const char* name, std::int32_t value) { return SetValue(name, ZtUData(value)); }
    bool SetString(const char* name, const char* value) { return SetValue(name, ZtUData(value)); }

    // Whether an option or sub-set of that name exists (nothing is posted).
    bool Has(const char* name) const;
    // Resets the option at name, or every option of the sub-set at name (all options of this
    // set for a null or empty name), to its default. A missing name is posted.
    void ResetToDefaults(const char* name);

    // False only for the stand-in that replaces a missing set.
    bool IsValid() const;
    // The full dotted path of a registered set ("" for the registry's root and unregistered sets).
    std::string GetPath() const;

protected:
    // Registers set as the sub-set name (taking ownership).
    bool AddSubSet(const char* name, ZtUOptionSet* set, Profile profile, unsigned int flags,
                   const char* className);

private:
    friend class ZtUOption;
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

// An option set that other sets can be registered into.
class ZTU_EXPORT ZtUExOptionSet : public ZtUOptionSet {
public:
    ZtUExOptionSet() = default;

    // Registers set (allocated with new; ownership passes to this set, also when it is refused)
    // as the sub-set name, with a class name telling the host what it holds (e.g. "point3d").
    // A name already in use is posted and the set kept aside unregistered; returns success.
    bool DefineSet(const char* name, ZtUOptionSet* set, Profile profile, unsigned int flags,
                   const char* className) {
        return AddSubSet(name, set, profile, flags, className);
    }

    // A state word for the creator of the set; the registry keeps it and never interprets it.
    unsigned int GetState() const { return m_state; }
    void SetState(unsigned int state) { m_state = state; }

    // Class-level allocation of extensible sets (they are handed to the registry, which
    // deletes them through the matching operator delete).
    static void* operator new(std::size_t size);
    static void operator delete(void* p) noexcept;

private:
    unsigned int m_state = 0;
};

// Flags of registered sets and options, kept for the host.
enum ZtUOptionFlags : unsigned int {
    ZtUOptionHidden = 1,     // not shown in the host's option editors
    ZtUOptionStructured = 2  // a structured value (a point, a colour) edited as one
};

// The registry's entry points.
class ZTU_EXPORT ZtUOption {
public:
    enum ErrorCode {
        MissingOption = 1,  // no option or set of that name
        WrongKind = 2,      // a value or read of the wrong kind
        Refused = 3,        // refused by the option's validator
        Duplicate = 4,      // a name defined twice
        InvalidName = 5     // a null or empty name, or a dotted path through a missing set
    };

    ZtUOption() = delete;

    // Registers set at a dotted path whose leading part names existing sets (ownership passes
    // to the registry, as for ZtUExOptionSet::DefineSet).
    static bool DefineSet(const char* path, ZtUOptionSet* set, ZtUOptionSet::Profile profile,
                          unsigned int flags, const char* className);
    // The set at a dotted path; a missing one is posted and yields the empty stand-in. The lock
    // must be held while the set is used.
    static ZtUOptionSet* GetSet(const char* path, const ZtUOptionLock& lock);
    // Resets the option or set at a dotted path to its defaults (everything for a null or empty
    // path).
    static void ResetToDefaults(const char* path);
    // The registry's root set.
    static ZtUExOptionSet* GetRoot();
    // The record the registry posts through.
    static ZtUComponent* GetComponent();
};

#endif
