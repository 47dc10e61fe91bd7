// Whether FEMAP refuses to give a value where an output vector has none: known from two entities
// that it refused alike, as long as it answered for none of them with a number.
#pragma once

#include "system/RuntimeError.h"

namespace femap::com::bulk
{

class MissingValue
{
public:
    /// FEMAP refused this entity with an error of this number.
    void learn(int id, sys::ErrorNumber number)
    {
        if (state_ == State::Nothing) {
            state_ = State::OneRefusal;
            id_ = id;
            number_ = number;
        }
        else if (state_ == State::OneRefusal && id != id_)
            state_ = number == number_ ? State::Refused : State::Unknowable;
    }
    /// FEMAP answered with a number, so nothing is known about the others.
    void giveUp() { state_ = State::Unknowable; }

    /// Whether any other entity would be refused, too, and the number of that error.
    bool isRefused() const { return state_ == State::Refused; }
    sys::ErrorNumber number() const { return number_; }

private:
    enum class State
    {
        Nothing,
        OneRefusal,
        Refused,
        Unknowable,
    };

    State state_ = State::Nothing;
    int id_ = 0;
    sys::ErrorNumber number_ = sys::ErrorNumber::ObjectFailed;
};

}  // namespace femap::com::bulk
