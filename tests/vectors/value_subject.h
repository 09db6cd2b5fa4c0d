// A value of any class behind one interface, for cases that name the class.
#pragma once

#include "profile/value.h"
#include "tests/vectors/topics.h"

#include <memory>

namespace ostrand::vectors {

class Subject {
public:
    virtual ~Subject() = default;
    virtual VProfileData& Value() = 0;
    virtual void Load(const VProfileKey* key, const Json& defaultValue) = 0;
    virtual void Merge(const VProfileKey* key) = 0;
    /// Object := object; both must come from the same case.
    virtual void Assign(const Subject& other) = 0;
    /// Current value := the plain value.
    virtual void Set(const Json& value) = 0;
    /// The current value.
    virtual Json Show() const = 0;
};

/// `description` names the "class", and the "record_size" of a block.
std::unique_ptr<Subject> MakeSubject(const Json& description, const VUnicodeString& name);

} // namespace ostrand::vectors
