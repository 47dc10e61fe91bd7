// A model while its values are changed: the journal is kept, what was put is read back, and
// whatever ends the run before its time puts the former values back or says that it did not.
#pragma once

#include "loop/Former.h"
#include "loop/Session.h"
#include "system/Memory.h"
#include "system/RuntimeError.h"

#include <memory>
#include <new>
#include <optional>
#include <string>

namespace loop
{

class ChangedModel
{
public:
    /// journal: its path. isLocked: the caller may have one of its own there, which stays. It gets
    /// the former values unless it has some already.
    ChangedModel(Session& session, std::string journal, Former former, bool isLocked);

    /// Keeps the journal. Nothing may be changed before.
    void begin();
    /// Puts values and reads them back. Raises RuntimeError when FEMAP refuses them or holds others
    /// afterwards.
    void put(const femap::ModelValues& wanted);
    /// Lets FEMAP skip its dialogs during a step.
    template <class Step>
    void withoutDialogs(const Step& step)
    {
        setSwitches(skipAll);
        step();
        setSwitches(switches_);
    }
    /// All is as it should be: the journal goes.
    void done();

    /// Makes the changes. What ends them raises RuntimeError that tells as well what became of the
    /// model.
    template <class Changes>
    void orPutBack(const Changes& changes)
    {
        try {
            changes();
        }
        catch (const femap::ConnectionLost& lost) {
            throw notPutBack(lost.what());
        }
        catch (const femap::WaitEnded& ended) {
            throw notPutBack(ended.what());
        }
        catch (const sys::RuntimeError& error) {
            throw putBack(error.what());
        }
        catch (const std::bad_alloc& error) {
            throw putBack(sys::reasonOf(error));
        }
    }

private:
    static constexpr femap::DialogSwitches skipAll = {1, 1};

    sys::System& system() { return session_.context().system; }
    bool keepsJournal() const { return !session_.connection().isEmbedded(); }
    void setSwitches(const femap::DialogSwitches& switches);
    void putFormer();
    sys::RuntimeError putBack(const std::string& reason);
    sys::RuntimeError notPutBack(const std::string& reason) const;

    Session& session_;
    std::unique_ptr<femap::ModelChanges> changes_;
    std::string journal_;
    Former former_;
    std::optional<Former> ofCaller_ = {};
    femap::DialogSwitches switches_ = {};
    bool switchesAreSet_ = false;
};

/// What an earlier run left that was ended by force is put back: values, switches and
/// InputValues.txt as far as the journal has them. Tells it; empty where there is nothing. Raises
/// RuntimeError when that cannot be done.
std::string putBackFormer(Session& session, const std::string& journal);

}  // namespace loop
