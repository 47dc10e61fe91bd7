#pragma once

#include "fake/FormFixture.h"

#include <string>
#include <vector>

namespace selection
{

/// Begins another log at the level that engineers use, in place of the fixture's, which has
/// everything.
class LevelledLog
{
public:
    LevelledLog(fake::FormFixture& f, std::string level) : f_(f)
    {
        f.context.log.DeinitialiseLogger();
        f.context.log.InitialiseLogger(name_, level);
    }

    std::vector<std::string> lines()
    {
        f_.context.log.flush();
        return f_.files.lines(f_.context.log.path());
    }

private:
    fake::FormFixture& f_;
    std::string name_ = "levelled.log";
};

}  // namespace selection
