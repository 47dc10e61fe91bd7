#pragma once

#include "logging/RuntimeError.h"

#include <optional>
#include <string>

namespace femap::bulk
{

/// What FEMAP says where an output vector has no value: once it refused two entities in like words,
/// it need not be asked about the others.
class MissingValue
{
public:
    /// FEMAP refused this entity.
    void learn(int id, const logging::RuntimeError& refusal);
    /// FEMAP answered with a number, so nothing is known about the others.
    void giveUp() { isKnowable_ = false; }

    /// What FEMAP would say about another entity; nothing when it must be asked.
    std::optional<logging::RuntimeError> refusalOf(int id) const;

private:
    struct Refusal
    {
        int id;
        logging::RuntimeError error;
    };
    struct Words
    {
        std::string before;  // the ID
        std::string after;
        bool hasID;
    };
    static std::optional<Words> wordsOf(const Refusal& one, const Refusal& other);

    bool isKnowable_ = true;
    std::optional<Refusal> first_;
    std::optional<Words> words_;
};

}  // namespace femap::bulk
