#include "femap/bulk/MissingValue.h"

namespace femap::bulk
{

using logging::RuntimeError;

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

// The words around the ID: those in which the second ID in place of the first makes the one text
// the other.
std::optional<MissingValue::Words> MissingValue::wordsOf(const Refusal& one, const Refusal& other)
{
    if (one.error.number() != other.error.number())
        return std::nullopt;
    const std::string text = one.error.description();
    const std::string otherText = other.error.description();
    if (text == otherText)
        return Words{text, "", false};
    const std::string id = std::to_string(one.id);
    for (std::size_t place = text.find(id); place != std::string::npos;
         place = text.find(id, place + 1)) {
        Words words{text.substr(0, place), text.substr(place + id.size()), true};
        if (words.before + std::to_string(other.id) + words.after == otherText)
            return words;
    }
    return std::nullopt;
}

}  // namespace femap::bulk
