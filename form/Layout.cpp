#include "form/Layout.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace form
{

namespace
{

// All lengths are in twips; 15 are one pixel of an ordinary screen.
constexpr int margin = 150;         // around frames, and between a frame's edge and what it holds
constexpr int gap = 105;            // between neighbours
constexpr int captionHeight = 270;  // of a frame, above its first line
constexpr int lineHeight = 375;
constexpr int textLineHeight = 285;
constexpr int leastFieldWidth = 1320;
constexpr int labelWidth = 1350;  // of one that begins a row, so that fields are aligned
constexpr int leastGridHeight = 1260;

struct KindHeight
{
    Kind kind;
    int height;
};

constexpr KindHeight heights[] = {
    {kindOf<Button>, lineHeight},
    {kindOf<ComboBox>, 330},
    {kindOf<TextBox>, 330},
    {kindOf<Label>, textLineHeight},
};

// How many lines of text there is room for below the frames; a narrow form breaks them.
struct TextLines
{
    int belowWidth;
    int ofModel;
    int ofStatus;
};

constexpr TextLines textLines[] = {
    {5250, 3, 4},
    {smallestWideContent, 2, 3},
    {1'000'000, 1, 2},
};

using Entries = std::span<const NamedControl>;

// What stands side by side: a line of the table, or what of it a narrow form has room for.
struct Row
{
    Entries entries;
    bool isBroken = false;  // a part of a line
};

struct FrameRows
{
    Control& frame;
    std::vector<Row> rows;

    bool hasGrid() const { return rows.back().entries.front().as<ParameterGrid>() != nullptr; }
    int leastHeight() const
    {
        const int count = static_cast<int>(rows.size());
        return captionHeight + count * (lineHeight + gap) - gap + margin +
               (hasGrid() ? leastGridHeight - lineHeight : 0);
    }
};

// A field stands close to its label, and a label apart from the field before.
int gapBetween(const NamedControl& one, const NamedControl& next)
{
    if (one.as<Label>() != nullptr)
        return 0;
    return next.as<Label>() != nullptr ? 2 * gap : gap;
}

// Of an entry of a row; 0: a share of what the row has to spare.
int widthOf(Entries row, std::size_t i)
{
    const bool isFirst = i == 0;
    return isFirst && row[i].as<Label>() != nullptr ? labelWidth : row[i].width;
}

int leastWidth(Entries row)
{
    int width = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const int own = widthOf(row, i);
        width += (own > 0 ? own : leastFieldWidth) + (i > 0 ? gapBetween(row[i - 1], row[i]) : 0);
    }
    return width;
}

// The longest part from the front that fits; a label is not parted from its field. Buttons behind
// fields have a row of their own.
Entries fittingPart(Entries line, int width)
{
    const auto button = std::ranges::find(line, kindOf<Button>, &NamedControl::kind);
    const auto fields = static_cast<std::size_t>(button - line.begin());
    std::size_t count = fields > 0 ? fields : line.size();
    const auto canEndAfter = [&](std::size_t entries) {
        return line[entries - 1].as<Label>() == nullptr && leastWidth(line.first(entries)) <= width;
    };
    while (count > 1 && !canEndAfter(count))
        --count;
    return line.first(count);
}

void addLine(std::vector<Row>& rows, Entries line, int width)
{
    const bool isBroken = leastWidth(line) > width;
    while (!line.empty()) {
        const Entries part = isBroken ? fittingPart(line, width) : line;
        rows.push_back({part, isBroken});
        line = line.subspan(part.size());
    }
}

std::vector<FrameRows> framesOf(const MainForm& form, int lineWidth)
{
    std::vector<FrameRows> frames;
    for (Entries rest = form.controls(); !rest.empty();) {
        const int number = rest.front().line;
        const auto end = std::ranges::find_if(
            rest, [number](const NamedControl& each) { return each.line != number; });
        const Entries line(rest.begin(), end);
        if (number > 0)
            addLine(frames.back().rows, line, lineWidth);
        else if (line.back().as<Frame>() != nullptr)
            frames.push_back({*line.back().control, {}});
        rest = rest.subspan(line.size());
    }
    return frames;
}

void setBounds(Control& control, int left, int top, int width, int height)
{
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
}

// A grid reaches down to the bottom; all else is as high as its kind, amid the line.
void layOutRow(const Row& row, int left, int right, int top, int bottom)
{
    const Entries entries = row.entries;
    int spare = right - left;
    int sharers = 0;
    // In a part of a line a box takes its share as well.
    const auto fixedWidth = [&](std::size_t i) {
        return row.isBroken && entries[i].as<ComboBox>() != nullptr ? 0 : widthOf(entries, i);
    };
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const int width = fixedWidth(i);
        spare -= width + (i > 0 ? gapBetween(entries[i - 1], entries[i]) : 0);
        sharers += width == 0 ? 1 : 0;
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const NamedControl& each = entries[i];
        left += i > 0 ? gapBetween(entries[i - 1], each) : 0;
        const auto* const kind = std::ranges::find(heights, each.kind(), &KindHeight::kind);
        const bool isGrid = kind == std::end(heights);
        const int height = isGrid ? bottom - top : kind->height;
        int width = fixedWidth(i);
        if (width == 0) {
            width = spare / sharers--;
            spare -= width;
        }
        setBounds(*each.control, left, isGrid ? top : top + (lineHeight - height) / 2, width,
                  height);
        left += width;
    }
}

void layOutFrame(const FrameRows& part, int top, int width, int height)
{
    setBounds(part.frame, margin, top, width, height);
    int rowTop = top + captionHeight;
    for (const Row& row : part.rows) {
        layOutRow(row, 2 * margin, width, rowTop, top + height - margin);
        rowTop += lineHeight + gap;
    }
}

}  // namespace

void layOutContent(MainForm& form, int inputShare)
{
    const int width = std::max(form.ScaleWidth - scrollBarThickness, smallestContentWidth);
    const int frameWidth = width - 2 * margin;
    const int lineWidth = frameWidth - 2 * margin;
    const std::vector<FrameRows> frames = framesOf(form, lineWidth);
    const TextLines& lines = *std::ranges::find_if(
        textLines, [width](const TextLines& each) { return width < each.belowWidth; });
    const int modelHeight = lines.ofModel * textLineHeight;
    const int statusHeight = lines.ofStatus * textLineHeight;

    int least = gap + modelHeight + statusHeight + margin;
    int sharers = 0;
    for (const FrameRows& each : frames) {
        least += margin + each.leastHeight();
        sharers += each.hasGrid() ? 1 : 0;
    }
    const int height = std::max(form.ScaleHeight - scrollBarThickness, least);
    form.pbInner.Width = width;
    form.pbInner.Height = height;

    // The grids share what is to spare; those behind the first one take what it leaves.
    int bottom = 0;
    int spare = height - least;
    for (const FrameRows& each : frames) {
        int frameHeight = each.leastHeight();
        if (each.hasGrid()) {
            const std::int64_t ofGrids = spare + std::int64_t{sharers} * frameHeight;
            const int wanted = static_cast<int>(ofGrids * inputShare / wholeShare) - frameHeight;
            const int extra = sharers > 1 ? std::clamp(wanted, 0, spare) : spare;
            frameHeight += extra;
            spare -= extra;
            --sharers;
        }
        layOutFrame(each, bottom + margin, frameWidth, frameHeight);
        bottom += margin + frameHeight;
    }
    setBounds(form.modelLine, 2 * margin, bottom + gap, lineWidth, modelHeight);
    setBounds(form.StatusLine, 2 * margin, bottom + gap + modelHeight, lineWidth, statusHeight);
}

}  // namespace form
