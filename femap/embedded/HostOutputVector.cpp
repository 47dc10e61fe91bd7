// The output vector object ("feOutput") of the model host.
#include "femap/embedded/Host.h"
#include "femap/embedded/HostObjects.h"
#include "femap/embedded/Members.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <cmath>

namespace femap::embedded
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

using Vector = neutral::OutputVector;

/// A member of "feOutput" that takes no index.
struct OutputMember
{
    std::string_view name;
    femap::Value (*read)(const Vector& vector, int setID);
};

// clang-format off
constexpr OutputMember outputMembers[] = {
    {"ID",        [](const Vector& v, int) { return Value(std::int64_t{v.id}); }},
    {"setID",     [](const Vector&, int setID) { return Value(std::int64_t{setID}); }},
    {"title",     [](const Vector& v, int) { return Value(withoutControlCharacters(v.title)); }},
    {"location",  [](const Vector& v, int) { return Value(static_cast<std::int64_t>(v.location)); }},
    {"maxval",    [](const Vector& v, int) { return Value(v.maxval); }},
    {"minval",    [](const Vector& v, int) { return Value(v.minval); }},
    {"absmaxval", [](const Vector& v, int) { return Value(std::max(std::abs(v.minval), std::abs(v.maxval))); }},
};
// clang-format on

}  // namespace

ReturnCode HostOutputVector::Get(int vectorID)
{
    const OutputSet* const set = activeOutputSet(host_.openModel());
    return set == nullptr ? ReturnCode::Fail : GetFromSet(set->id, vectorID);
}

ReturnCode HostOutputVector::GetFromSet(int setID, int vectorID)
{
    const OutputSet* const set = host_.openModel().outputSets.find(setID);
    const int id = vectorID == 0 ? vectorID_ : vectorID;
    if (set == nullptr || set->vectors.find(id) == nullptr)
        return ReturnCode::Fail;
    setID_ = setID;
    vectorID_ = id;
    return ReturnCode::Ok;
}

std::string HostOutputVector::Title()
{
    return withoutControlCharacters(loaded().title);
}

double HostOutputVector::Value(int entityID)
{
    const neutral::OutputVector& vector = loaded();
    const double* const value = vector.valueAt(entityID);
    if (value == nullptr)
        throw RuntimeError(ErrorNumber::ObjectFailed, noValueText(vector.id, entityID));
    return *value;
}

femap::Value HostOutputVector::member(const std::string& name)
{
    for (const OutputMember& candidate : outputMembers)
        if (isSameName(candidate.name, name))
            return candidate.read(loaded(), setID_);
    if (isSameName(name, "Value"))
        throw RuntimeError(ErrorNumber::InvalidCall, name + " of feOutput needs an index");
    throw RuntimeError(ErrorNumber::NoSuchMember, "feOutput has no member " + name);
}

femap::Value HostOutputVector::member(const std::string& name, int index)
{
    if (isSameName(name, "Value"))
        return Value(index);
    member(name);  // raises for an unknown name
    throw RuntimeError(ErrorNumber::InvalidCall, name + " of feOutput takes no index");
}

const neutral::OutputVector& HostOutputVector::loaded() const
{
    static const neutral::OutputVector nothing;
    if (vectorID_ == 0)
        return nothing;
    const OutputSet* const set = host_.openModel().outputSets.find(setID_);
    const neutral::OutputVector* const vector =
        set == nullptr ? nullptr : set->vectors.find(vectorID_);
    if (vector == nullptr)
        throw RuntimeError(ErrorNumber::ObjectFailed, "Output vector " + std::to_string(vectorID_) +
                                                          " is no longer in the model");
    return *vector;
}

void putOutputValue(Model& model, int vectorID, int entityID, double value)
{
    OutputSet* const set = activeOutputSet(model);
    neutral::OutputVector* const vector = set == nullptr ? nullptr : set->vectors.find(vectorID);
    if (vector == nullptr)
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "FEMAP has no output vector " + std::to_string(vectorID));
    const bool isOnNodes = vector->location == EntityType::Node;
    const bool isThere = isOnNodes ? model.nodes.find(entityID) != nullptr
                                   : model.elements.find(entityID) != nullptr;
    const auto id = std::lower_bound(vector->ids.begin(), vector->ids.end(), entityID);
    const auto at = vector->values.begin() + (id - vector->ids.begin());
    if (id != vector->ids.end() && *id == entityID) {
        *at = value;
    }
    else if (isThere) {
        vector->values.insert(at, value);
        vector->ids.insert(id, entityID);
    }
    else {
        throw RuntimeError(ErrorNumber::InvalidCall,
                           std::string("FEMAP has no ") + (isOnNodes ? "Node" : "Elem") +
                               " with the ID " + std::to_string(entityID));
    }
    const auto [least, most] = std::minmax_element(vector->values.begin(), vector->values.end());
    vector->minval = *least;
    vector->maxval = *most;
}

}  // namespace femap::embedded
