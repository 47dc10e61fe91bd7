#include "form/Layout.h"

#include <algorithm>
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
constexpr int statusHeight = 510;  // two lines of text
constexpr int modelLineHeight = 240;

struct KindHeight
{
    Kind kind;
    int height;
};

constexpr KindHeight heights[] = {
    {kindOf<Button>, lineHeight},
    {kindOf<ComboBox>, 330},
    {kindOf<TextBox>, 330},
    {kindOf<Label>, 225},
};

using Entries = std::span<const NamedControl>;

struct FrameEntries
{
    Control& frame;
    Entries content;  // line by line

    bool hasGrid() const { return content.back().as<ParameterGrid>() != nullptr; }
    // Of one without a grid.
    int height() const
    {
        return captionHeight + content.back().line * (lineHeight + gap) - gap + margin;
    }
};

std::vector<FrameEntries> framesOf(const MainForm& form)
{
    std::vector<FrameEntries> frames;
    Entries rest = form.controls();
    for (; !rest.empty(); rest = rest.subspan(1)) {
        if (rest.front().as<Frame>() == nullptr)
            continue;
        const Entries after = rest.subspan(1);
        const auto end = std::ranges::find(after, 0, &NamedControl::line);
        frames.push_back({*rest.front().control, {after.begin(), end}});
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

// A field stands close to its label, and a label apart from the field before.
int gapBetween(const NamedControl& one, const NamedControl& next)
{
    if (one.as<Label>() != nullptr)
        return 0;
    return next.as<Label>() != nullptr ? 2 * gap : gap;
}

// A grid reaches down to the bottom; all else is as high as its kind, amid the line.
void layOutLine(Entries line, int left, int right, int top, int bottom)
{
    int spare = right - left;
    int sharers = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        spare -= line[i].width + (i > 0 ? gapBetween(line[i - 1], line[i]) : 0);
        sharers += line[i].width == 0 ? 1 : 0;
    }
    const int share = sharers > 0 ? spare / sharers : 0;
    const int remainder = spare - sharers * share;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const NamedControl& each = line[i];
        left += i > 0 ? gapBetween(line[i - 1], each) : 0;
        const auto* const row = std::ranges::find(heights, each.kind(), &KindHeight::kind);
        const bool isGrid = row == std::end(heights);
        const int height = isGrid ? bottom - top : row->height;
        const int width = each.width > 0 ? each.width : share;
        setBounds(*each.control, left, isGrid ? top : top + (lineHeight - height) / 2, width,
                  height);
        left += width;
        if (each.width == 0 && --sharers == 0)
            left += remainder;
    }
}

void layOutFrame(const FrameEntries& part, int top, int width, int height)
{
    setBounds(part.frame, margin, top, width, height);
    for (Entries rest = part.content; !rest.empty();) {
        const int number = rest.front().line;
        const auto end = std::ranges::find_if(
            rest, [number](const NamedControl& each) { return each.line != number; });
        const Entries line(rest.begin(), end);
        layOutLine(line, 2 * margin, width, top + captionHeight + (number - 1) * (lineHeight + gap),
                   top + height - margin);
        rest = rest.subspan(line.size());
    }
}

}  // namespace

void layOutContent(MainForm& form)
{
    const int width = std::max(form.ScaleWidth - scrollBarThickness, smallestContentWidth);
    const int height = std::max(form.ScaleHeight - scrollBarThickness, smallestContentHeight);
    form.pbInner.Width = width;
    form.pbInner.Height = height;

    // The frames with grids share what the others and the status line leave.
    const std::vector<FrameEntries> frames = framesOf(form);
    const int frameWidth = width - 2 * margin;
    int spare = height - gap - modelLineHeight - statusHeight - margin;
    int sharers = 0;
    for (const FrameEntries& each : frames) {
        spare -= margin + (each.hasGrid() ? 0 : each.height());
        sharers += each.hasGrid() ? 1 : 0;
    }
    int bottom = 0;
    for (const FrameEntries& each : frames) {
        const int frameHeight = each.hasGrid() ? spare / sharers : each.height();
        layOutFrame(each, bottom + margin, frameWidth, frameHeight);
        bottom += margin + frameHeight;
    }
    const int lineWidth = frameWidth - 2 * margin;
    setBounds(form.modelLine, 2 * margin, bottom + gap, lineWidth, modelLineHeight);
    setBounds(form.StatusLine, 2 * margin, bottom + gap + modelLineHeight, lineWidth, statusHeight);
}

}  // namespace form
