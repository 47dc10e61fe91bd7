// How FEMAP refuses to give a value where an output vector has none. After two refusals whose texts
// differ in the ID at most, the refusal of any other entity is known without a call.
#pragma once

#include "system/RuntimeError.h"

#include <optional>
#include <string>

namespace femap::com::bulk
{

class MissingValue
{
public:
    /// FEMAP refused this entity.
    void learn(int id, const sys::RuntimeError& refusal);
    /// FEMAP answered with a number, so nothing is known about the others.
    void giveUp() { isKnowable_ = false; }

    /// What FEMAP would say about another entity; nothing when it must be asked.
    std::optional<sys::RuntimeError> refusalOf(int id) const;

private:
    struct Refusal
    {
        int id;
        sys::RuntimeError error;
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

}  // namespace femap::com::bulk
