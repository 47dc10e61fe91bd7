// What the engineer is to know about the mass of a mesh: which elements could not be weighed, and
// where the model host takes a value in a way that no page of FEMAP confirms.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace femap::embedded
{

enum class MassRemark
{
    UnknownKind,
    NoShape,
    NoProperty,
    NoMaterial,
    NoLayup,
    NoDensity,
    BottomSurface,
    Lumped,
    LumpedByDirection,
    LumpedOffset,
    LumpedElsewhere,
};

/// Counts elements by remark and type.
class MassRemarks
{
public:
    void add(MassRemark remark, int elementType) { ++counts_[remark][elementType]; }
    /// One text for each remark that was made about some of the measured elements.
    std::vector<std::string> texts(std::size_t measured) const;

private:
    std::map<MassRemark, std::map<int, std::size_t>> counts_;
};

}  // namespace femap::embedded
