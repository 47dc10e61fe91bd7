// What the model and InputValues.txt hold before a call of velmar-evaluate, and come back to after
// it. Meanwhile the journal of the loop keeps it.
#pragma once

#include "loop/Description.h"
#include "loop/Former.h"
#include "loop/Problems.h"
#include "loop/Session.h"
#include "loop/evaluate/Run.h"

#include <functional>
#include <optional>
#include <ostream>
#include <string>

namespace loop::evaluate
{

class WayBack
{
public:
    /// Connects to FEMAP where the study runs beside it; a FEMAP that is started for it stays for
    /// the whole call. All must outlive it. Raises RuntimeError when there is no FEMAP.
    WayBack(const Setting& setting, const Description& inputs,
            const std::function<Connection()>& running, std::ostream& told);

    /// Puts back what a call left that was ended by force, and tells it. Raises RuntimeError when
    /// that cannot be done.
    void putBackLeft();
    /// Whether that gave InputValues.txt another content.
    bool hasChangedInputs() const { return hasChangedInputs_; }

    /// Keeps what the model has now, and InputValues.txt where the call is to change it. A study
    /// that does not fit the model is a problem, and nothing is kept then.
    void keep(bool changesInputs, Problems& problems);
    /// Raises RuntimeError when something is not back; it stays kept then.
    void putBack();

private:
    sys::System& system() const { return setting_.system; }
    std::string pathOf(const std::string& file) const { return inputs_.pathOf(file); }
    std::string journal() const { return pathOf(formerFile(inputs_.name())); }
    femap::ModelValues valuesInModel(Problems& problems);
    void putBack(const Former& former);

    const Setting& setting_;
    const Description& inputs_;
    std::ostream& told_;
    std::optional<Session> session_;  // none with the model host, whose model never changes
    bool hasChangedInputs_ = false;
};

}  // namespace loop::evaluate
