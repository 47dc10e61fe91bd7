// A small study in a folder of its own, with shell scripts in place of CAEInput, CAEOutput and the
// solver. The one result is the sum of the inputs, the other one never changes.
#pragma once

#include "fake/TemporaryFolder.h"
#include "loop/evaluate/EvaluateProgram.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace loop::evaluate
{

class EvaluateFixture : public testing::Test
{
protected:
    EvaluateFixture();

    /// Runs velmar-evaluate in the study's folder, with the model host unless the words say
    /// otherwise.
    int evaluate(std::vector<std::string> words = {});

    void write(const std::string& name, const std::string& text) const;
    std::string read(const std::string& name) const;
    bool has(const std::string& name) const;
    std::string path(const std::string& name) const { return folder.path(name); }
    /// What the scripts were called with, a line each.
    std::vector<std::string> calls() const;
    int callsOf(const std::string& program) const;

    fake::TemporaryFolder folder;
    fake::TemporaryFolder programs;
    sys::System system = sys::thisMachine();
    std::ostringstream output;
    std::ostringstream errors;
    std::function<bool()> isToStop = [] { return false; };
    const std::string inputs = "Skin  1.5\r\nLoad  history  X-Y Values\r\nWeb, left   .25\r\n";
    const std::string outputs = "Total mass  2\r\nEnd \"B\"  7\r\n";
};

}  // namespace loop::evaluate
