// VProfileSecret: what all protected texts share. In memory they are the plain text, marked sensitive, so that it is
// zeroed when its last holder lets go; in the store they are what their class makes of it.
#pragma once

#include "profile/values.h"

#include <string_view>

namespace ostrand {

/// Base of the class V, whose current value is a T. V brings its stored form with it:
///     bool Encode(VUnicodeString& stored);       // of a value that isn't empty; false: nothing is written
///     bool Decode(const VUnicodeString& stored); // into the current value; false: it stays
/// The default comes with V's own load.
template <class V, class T>
class OSTRAND_API VProfileSecret : public VProfile2<T, VProfileSz> {
    using Base = VProfile2<T, VProfileSz>;

public:
    VProfileSecret() = default;
    VProfileSecret(const VProfileSecret&) = default;
    /// Takes the current value and the name, and schedules a write; the saved copy stays.
    VProfileSecret& operator=(const VProfileSecret& other)
    {
        Base::operator=(other);
        m_isHeldBack = other.m_isHeldBack;
        return *this;
    }

    /// Replaces the current value; saved copy and `dirty` stay. The caller's own copy is the caller's to zero.
    VProfileSecret& operator=(std::u16string_view text)
    {
        SetText(text);
        return *this;
    }
    /// The same; null counts as empty.
    void SetValue(const char16_t* text) { SetText(VUnicodeString(text)); }

    bool Parse(const VUnicodeString& text, IProfileValueParser* parser, IReportMessageParams& report) override
    {
        if (!Base::Parse(text, parser, report))
            return false;
        KeepMarked();
        return true;
    }
    bool SetVariant(const VVariant* in, IReportMessageParams& report) override
    {
        const bool isSet = Base::SetVariant(in, report);
        this->Value().MarkSensitive();
        return isSet;
    }
    void Save(VProfileKey* key, bool force) override
    {
        if (!key || IsHeldBack() || (!force && !this->IsDirty() && !this->IsModified()))
            return;
        VUnicodeString stored;
        if (!this->Value().IsEmpty() && !static_cast<V*>(this)->Encode(stored))
            return;
        this->WriteStored(key, stored);
        this->KeepAsSaved();
        m_isHeldBack = false;
    }
    bool ReadValue(const VProfileKey* key) override
    {
        VUnicodeString stored;
        return key && this->ReadStored(key, &stored) && static_cast<V*>(this)->Decode(stored);
    }

    /// Empties the value and keeps every save, also a forced one, from writing it before it gets a text: what stands in
    /// the store can't be read here and now, but may be elsewhere or later.
    void HoldBack()
    {
        SetText({});
        this->KeepAsClean();
        m_isHeldBack = true;
    }
    bool IsHeldBack() const { return m_isHeldBack && this->IsEmpty() && this->saved.IsEmpty(); }

protected:
    /// Shares the buffer of a text that is marked already.
    void SetText(VUnicodeString text)
    {
        text.MarkSensitive();
        static_cast<VUnicodeString&>(this->Value()) = text;
    }
    /// The stored value, clean; one that can't be decoded, held back; else the default. `key` may be null.
    void LoadText(const VProfileKey* key, const VUnicodeString& defaultText)
    {
        VUnicodeString stored;
        m_isHeldBack = false;
        this->dirty = !key || !this->ReadStored(key, &stored);
        if (this->dirty)
            SetText(defaultText);
        else if (!static_cast<V*>(this)->Decode(stored))
            return HoldBack();
        KeepMarked();
    }

private:
    void KeepMarked()
    {
        this->Value().MarkSensitive();
        this->saved = this->Value();
    }

    bool m_isHeldBack = false;
};

} // namespace ostrand
