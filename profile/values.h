// VProfile<T> for numbers and VProfile2<T, S> for everything else: a current value, a saved copy and a store form.
#pragma once

#include "profile/value.h"

#include <cstdint>
#include <type_traits>

namespace ostrand {

/// On a session's value, `Undetermined` means that the global value of the same name decides.
enum class VTriState : unsigned { False = 0, True = 1, Undetermined = 2 };

/// A number. Held to 32 bits in the store, whatever T's size. Ranges are never checked on reading.
template <class T>
class OSTRAND_API VProfile : public VProfileDword {
public:
    VProfile() = default;
    VProfile(const VProfile&) = default;
    /// Takes the current value and the name, and schedules a write; the saved copy stays.
    VProfile& operator=(const VProfile& other)
    {
        VProfileDword::operator=(other);
        value = other.value;
        return *this;
    }
    /// Replaces the current value; saved copy and `dirty` stay.
    VProfile& operator=(const T& v)
    {
        value = v;
        return *this;
    }
    operator T() const { return value; } // NOLINT(google-explicit-constructor): reads as the value

    /// The stored value, clean; else the default, pending. Can't fail.
    void Load(const VProfileKey* key, const T& defaultValue)
    {
        dirty = !Read(key);
        if (dirty)
            value = defaultValue;
        saved = value;
    }
    /// The stored value if there is one; otherwise nothing changes.
    void Merge(const VProfileKey* key)
    {
        if (!Read(key))
            return;
        dirty = false;
        saved = value;
    }

    /// On purpose: a number is read from the bytes of the text up to the first zero byte, which in all but exotic texts
    /// is its first character alone: "12" is 1, "-5" is 0. A bool asks the parser.
    bool Parse(const VUnicodeString& text, IProfileValueParser* parser, IReportMessageParams& report) override;
    void Save(VProfileKey* key, bool force) override
    {
        if (!key || (!force && !dirty && value == saved))
            return;
        WriteStored(key, ToStored(value));
        saved = value;
    }
    bool IsModified() const override { return value != saved; }
    void AcceptChanges() override
    {
        if (value != saved)
            dirty = true;
        saved = value;
    }
    void RevertChanges() override { value = saved; }
    void CopyValue(const VProfileData& other) override { value = dynamic_cast<const VProfile&>(other).value; }
    VProfileData* GetMember(int) override { return this; }
    /// A tri-state that is undetermined gives the empty value.
    bool GetVariant(VVariant* out, IReportMessageParams& report) override;
    /// A tri-state becomes true or false; it can't be made undetermined this way.
    bool SetVariant(const VVariant* in, IReportMessageParams& report) override;

    T value{};
    T saved{};
    /// Base of the numbers that `Parse` reads; used nowhere else.
    int radix = 10;

private:
    bool Read(const VProfileKey* key)
    {
        unsigned stored = 0;
        if (!key || !ReadStored(key, &stored))
            return false;
        value = FromStored(stored);
        return true;
    }
    static T FromStored(unsigned stored)
    {
        if constexpr (std::is_same_v<T, bool>)
            return stored != 0;
        else
            return static_cast<T>(stored);
    }
    static unsigned ToStored(T v) { return static_cast<unsigned>(v); }
};

extern template class OSTRAND_API VProfile<int>;
extern template class OSTRAND_API VProfile<unsigned int>;
extern template class OSTRAND_API VProfile<unsigned long>;
extern template class OSTRAND_API VProfile<bool>;
extern template class OSTRAND_API VProfile<VTriState>;

/// A value of class T in the store form S. The object is a T, and that base is the current value. S brings ReadStored,
/// WriteStored and ParseInto for a T; T is compared by ==.
template <class T, class S>
class OSTRAND_API VProfile2 : public S, public T {
public:
    VProfile2() : S(), T() {} // T's fields begin as zero even where T is a plain record
    VProfile2(const VProfile2&) = default;
    /// Takes the current value and the name, and schedules a write; the saved copy stays.
    VProfile2& operator=(const VProfile2& other)
    {
        S::operator=(other);
        T::operator=(static_cast<const T&>(other));
        return *this;
    }
    /// Replaces the current value; saved copy and `dirty` stay.
    VProfile2& operator=(const T& v)
    {
        T::operator=(v);
        return *this;
    }

    const T& Value() const { return *this; }
    T& Value() { return *this; }

    /// The stored value, clean; else the default, pending. Can't fail.
    void Load(const VProfileKey* key, const T& defaultValue)
    {
        this->dirty = !ReadValue(key);
        if (this->dirty)
            Value() = defaultValue;
        KeepAsSaved();
    }
    /// The stored value if there is one; otherwise nothing changes.
    void Merge(const VProfileKey* key)
    {
        if (ReadValue(key))
            KeepAsClean();
    }

    bool Parse(const VUnicodeString& text, IProfileValueParser* parser, IReportMessageParams& report) override
    {
        if (!this->ParseInto(&Value(), text, parser, report))
            return false;
        KeepAsClean();
        return true;
    }
    void Save(VProfileKey* key, bool force) override
    {
        if (!key || (!force && !this->IsDirty() && Value() == saved))
            return;
        this->WriteStored(key, Value());
        KeepAsSaved();
    }
    bool IsModified() const override { return !(Value() == saved); }
    void AcceptChanges() override
    {
        if (Value() == saved)
            return;
        this->dirty = true;
        saved = Value();
    }
    void RevertChanges() override { Value() = saved; }
    void CopyValue(const VProfileData& other) override { Value() = dynamic_cast<const VProfile2&>(other).Value(); }
    VProfileData* GetMember(int) override { return this; }
    bool GetVariant(VVariant* out, IReportMessageParams& report) override
    {
        if constexpr (std::is_base_of_v<VProfileMultiSz, S>)
            return this->GetVariantArray(out, Value(), report);
        else
            return this->GetVariantData(out, Data(), sizeof(T), report);
    }
    bool SetVariant(const VVariant* in, IReportMessageParams& report) override
    {
        return this->SetVariantData(in, Data(), sizeof(T), report);
    }

    /// Current value from the store; saved copy and `dirty` stay. False for a null key, a missing or unfit value.
    virtual bool ReadValue(const VProfileKey* key) { return key && this->ReadStored(key, &Value()); }

    T saved{};

protected:
    void KeepAsSaved()
    {
        if (!(Value() == saved))
            saved = Value();
    }
    void KeepAsClean()
    {
        this->dirty = false;
        KeepAsSaved();
    }

private:
    /// What S converts; of a class that is more than its text, the text.
    void* Data()
    {
        if constexpr (std::is_base_of_v<VUnicodeString, T>)
            return static_cast<VUnicodeString*>(this);
        else
            return &Value();
    }
};

extern template class OSTRAND_API VProfile2<VUnicodeString, VProfileSz>;
extern template class OSTRAND_API VProfile2<VStringArray, VProfileMultiSz>;

} // namespace ostrand
