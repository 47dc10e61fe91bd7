// What the model and InputValues.txt hold before a call of velmar-evaluate, and come back to after
// it. It is kept in the journal of the loop, to which CAEInput adds the model's values before it
// puts the first one.
#pragma once

#include "loop/Description.h"
#include "loop/Former.h"
#include "loop/evaluate/Run.h"

#include <functional>
#include <iosfwd>
#include <string>

namespace loop::evaluate
{

class WayBack
{
public:
    /// Puts back what a call left that was ended by force, and tells it; then keeps what the study
    /// has now. All must outlive it. Raises RuntimeError when something cannot be done.
    WayBack(const Setting& setting, const Description& inputs, std::ostream& told);

    /// Raises RuntimeError when something is not back, with where it is kept.
    void putBack();

private:
    std::string pathOf(const std::string& file) const { return inputs_.pathOf(file); }
    std::string journal() const { return pathOf(formerFile(inputs_.name())); }
    void putBack(const Former& former);
    void putBackByInput();

    const Setting& setting_;
    const Description& inputs_;
};

}  // namespace loop::evaluate
