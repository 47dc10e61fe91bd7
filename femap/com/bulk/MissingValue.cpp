#include "femap/com/bulk/MissingValue.h"

namespace femap::com::bulk
{

using sys::RuntimeError;

void MissingValue::learn(int id, const RuntimeError& refusal)
{
    if (!first_) {
        first_ = Refusal{id, refusal};
        return;
    }
    if (id == first_->id || words_ || !isKnowable_)
        return;
    words_ = wordsOf(*first_, {id, refusal});
    if (!words_)
        giveUp();
}

std::optional<RuntimeError> MissingValue::refusalOf(int id) const
{
    if (!isKnowable_ || !words_)
        return std::nullopt;
    const std::string number = words_->hasID ? std::to_string(id) : "";
    return RuntimeError(first_->error.number(), words_->before + number + words_->after);
}

// The words before and after the ID. Around the ID of the other refusal they must give its text.
std::optional<MissingValue::Words> MissingValue::wordsOf(const Refusal& one, const Refusal& other)
{
    if (one.error.number() != other.error.number())
        return std::nullopt;
    const std::string text = one.error.description();
    const std::string otherText = other.error.description();
    if (text == otherText)
        return Words{text, "", false};
    const std::string id = std::to_string(one.id);
    for (std::size_t at = text.find(id); at != std::string::npos; at = text.find(id, at + 1)) {
        Words words{text.substr(0, at), text.substr(at + id.size()), true};
        if (words.before + std::to_string(other.id) + words.after == otherText)
            return words;
    }
    return std::nullopt;
}

}  // namespace femap::com::bulk
