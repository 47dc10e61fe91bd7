#include "form/ParameterRow.h"

#include <iterator>
#include <span>

namespace form
{

namespace
{

using femap::LoadDataType;

// clang-format off
constexpr RowKind rowKinds[] = {
    {"Node",           true,  Refreshed::FromEntity},
    {"Elem",           true,  Refreshed::FromEntity},
    {propertyKind,     true,  Refreshed::FromEntity},
    {"Matl",           true,  Refreshed::FromEntity},
    {functionKind,     true,  Refreshed::Never},
    {"LoadMesh",       true,  Refreshed::Never, LoadDataType::Mesh},
    {"LoadGeom",       true,  Refreshed::Never, LoadDataType::Geometry},
    {"LoadETemp",      true,  Refreshed::Never, LoadDataType::ElementalTemperature},
    {"LoadNTemp",      true,  Refreshed::Never, LoadDataType::NodalTemperature},
    {vectorValueKind,  false, Refreshed::FromVector},
    {"maxval",         false, Refreshed::FromResult},
    {"minval",         false, Refreshed::FromResult},
    {massKind,         false, Refreshed::FromMass},
};
// clang-format on

const RowKind* found(const RowKind* place)
{
    return place == std::end(rowKinds) ? nullptr : place;
}

void join(std::string& text, std::span<const std::string_view> cells)
{
    text.assign(cells.front());
    for (const std::string_view cell : cells.subspan(1))
        text.append(1, cellSeparator).append(cell);
}

}  // namespace

const RowKind* findRowKind(std::string_view tag)
{
    return found(std::ranges::find(rowKinds, tag, &RowKind::tag));
}

const RowKind* findLoadRowKind(int dataType)
{
    return found(std::ranges::find(rowKinds, static_cast<LoadDataType>(dataType), &RowKind::load));
}

void InputCells::joinIn(std::string& text) const
{
    join(text, std::array{name, value, kind, id, member, index});
}

void OutputCells::joinIn(std::string& text) const
{
    join(text, std::array{name, value, first, second, kind});
}

std::string_view cellOf(std::string_view rowText, int column)
{
    for (int i = 0; i < column; ++i)
        rowText.remove_prefix(rowText.find(cellSeparator) + 1);
    return rowText.substr(0, rowText.find(cellSeparator));
}

std::string placeWords(std::string_view rowText)
{
    const std::string_view first = cellOf(rowText, valueColumn + 1);
    rowText.remove_prefix(static_cast<std::size_t>(first.data() - rowText.data()));
    std::string words(rowText.substr(0, rowText.find_last_not_of(cellSeparator) + 1));
    std::ranges::replace(words, cellSeparator, ' ');
    return words;
}

}  // namespace form
