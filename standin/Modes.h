// Ways in which a FEMAP may behave where nobody has seen a real one do so. A stand-in with none of
// them is what is most likely; tests turn them on.
#pragma once

#include <bitset>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string_view>

namespace standin
{

enum class Mode : std::size_t
{
    Superseded,
    MissingIsZero,
    PaddedArrays,
    VariantArrays,
    ClearKeeps,
    Renumbered,
    VectorsOfActiveSet,
    BeyondIsZero,
    NoModelNoName,
    EventsSent,
    LongModelIDs,
    MixedLoads,
    WalkEndsMissing,
    LockedNoDialogs,
    Untitled,
    ProductsNegated,
    NothingWeighsNothing,
    StrictIndices,
    LooseResults,
    ReadActivates,
    Stays,
};

struct ModeName
{
    std::string_view name;
    Mode mode;
    std::string_view meaning;
};

// clang-format off
inline constexpr ModeName modeNames[] = {
    {"superseded",      Mode::Superseded,         "a newer FEMAP has the members that it replaced"},
    {"missing-zero",    Mode::MissingIsZero,      "a value that is not there reads as 0"},
    {"padded",          Mode::PaddedArrays,       "arrays are longer than their count tells"},
    {"variant-arrays",  Mode::VariantArrays,      "arrays hold VARIANTs"},
    {"clear-keeps",     Mode::ClearKeeps,         "a cleared table of results keeps its columns"},
    {"renumbered",      Mode::Renumbered,         "a newer FEMAP numbers vectors anew"},
    {"active-vectors",  Mode::VectorsOfActiveSet, "vectors come from the active output set"},
    {"beyond-zero",     Mode::BeyondIsZero,       "an index beyond an array reads as 0"},
    {"nameless",        Mode::NoModelNoName,      "without a model the model's name is empty"},
    {"events-sent",     Mode::EventsSent,         "events are sent, not posted"},
    {"long-models",     Mode::LongModelIDs,       "models have IDs of 64 bits"},
    {"mixed-loads",     Mode::MixedLoads,         "a load definition has loads of every kind"},
    {"walk-missing",    Mode::WalkEndsMissing,    "a walk over loads ends with FE_NOT_EXIST"},
    {"locked-no-dialogs", Mode::LockedNoDialogs,  "dialogs fail while FEMAP is locked"},
    {"untitled",        Mode::Untitled,           "lists call \"Untitled\" what has no title"},
    {"negated",         Mode::ProductsNegated,    "products of inertia have the other sign"},
    {"weighs-nothing",  Mode::NothingWeighsNothing, "no elements cannot be measured"},
    {"strict-indices",  Mode::StrictIndices,      "a real is no index"},
    {"loose-results",   Mode::LooseResults,       "what a member fills may be a VARIANT instead"},
    {"read-activates",  Mode::ReadActivates,      "results that are read become active"},
    {"stays",           Mode::Stays,              "FEMAP stays when its last client goes"},
};
// clang-format on

/// Those that are on.
class Modes
{
public:
    void turnOn(Mode mode) { bits_.set(static_cast<std::size_t>(mode)); }
    bool operator[](Mode mode) const { return bits_[static_cast<std::size_t>(mode)]; }

private:
    std::bitset<std::size(modeNames)> bits_;
};

/// Nothing for a name that no mode has.
constexpr std::optional<Mode> modeNamed(std::string_view name)
{
    for (const ModeName& one : modeNames)
        if (one.name == name)
            return one.mode;
    return std::nullopt;
}

}  // namespace standin
