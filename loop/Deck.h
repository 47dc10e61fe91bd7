// The deck of the model, which takes the place of the old one only when FEMAP has written it.
#pragma once

#include "loop/Description.h"
#include "loop/Session.h"

#include <string>

namespace loop
{

class Deck
{
public:
    Deck(Session& session, const Description& inputs);
    ~Deck();
    Deck(const Deck&) = delete;
    Deck& operator=(const Deck&) = delete;

    /// What would be in the way becomes problems.
    void demandPossible(Problems& problems);
    /// Lets FEMAP write it under another name. Raises RuntimeError when it is not there then.
    void write();
    /// Gives it its name.
    void keep();
    /// Takes it away where it has its name already: its values are not in the model any more.
    void withdraw();

private:
    Session& session_;
    const Description& inputs_;
    std::string path_;
    std::string written_;  // the other name, with the same ending
    bool isKept_ = false;
};

}  // namespace loop
