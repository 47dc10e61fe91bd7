#include "preview/Comparison.h"

#include <algorithm>
#include <utility>

namespace preview
{

namespace
{

std::size_t lineEndsIn(std::string_view bytes)
{
    return static_cast<std::size_t>(std::ranges::count(bytes, '\n'));
}

// Of two texts of one length. Mostly they are the same, which is quickly seen.
std::size_t equalAtTheStart(std::string_view one, std::string_view other)
{
    if (one == other)
        return one.size();
    return static_cast<std::size_t>(std::ranges::mismatch(one, other).in1 - one.begin());
}

}  // namespace

Comparison::Comparison(File& file, std::unique_ptr<sys::InputFile> there,
                       std::optional<std::string>* text)
    : file_(file), there_(std::move(there)), text_(text)
{}

void Comparison::write(std::string_view bytes)
{
    file_.size += bytes.size();
    keep(bytes);
    compare(bytes);
}

void Comparison::close()
{
    if (there_ != nullptr && hasNext())
        endAtDifference();
    there_.reset();
}

void Comparison::keep(std::string_view bytes)
{
    if (text_ == nullptr)
        return;
    lines_ += lineEndsIn(bytes);
    if (file_.size > mostBytes || lines_ > mostLines)
        std::exchange(text_, nullptr)->reset();
    else
        (*text_)->append(bytes);
}

void Comparison::compare(std::string_view bytes)
{
    while (there_ != nullptr && !bytes.empty()) {
        if (!hasNext()) {
            endAtDifference();
            return;
        }
        const std::string_view next = std::string_view(piece_).substr(taken_, bytes.size());
        const std::size_t equal = equalAtTheStart(next, bytes.substr(0, next.size()));
        line_ += lineEndsIn(bytes.substr(0, equal));
        taken_ += equal;
        if (equal < next.size())
            endAtDifference();
        bytes.remove_prefix(equal);
    }
}

// Whether anything is left of what is there.
bool Comparison::hasNext()
{
    constexpr std::size_t pieceSize = 1 << 18;
    if (taken_ == piece_.size()) {
        piece_ = there_->next(pieceSize);
        taken_ = 0;
    }
    return !piece_.empty();
}

void Comparison::endAtDifference()
{
    file_.firstDifference = line_;
    there_.reset();
    piece_ = {};
}

}  // namespace preview
