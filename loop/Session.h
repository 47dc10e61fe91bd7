// The FEMAP that has the model of a study open, and what the form's procedures need around it.
#pragma once

#include "form/Context.h"
#include "form/NoWindow.h"
#include "loop/Program.h"

#include <string>

namespace loop
{

class Session
{
public:
    /// Takes the FEMAP that has the model of this path open; else starts one and opens it there.
    /// Raises RuntimeError when there is no way to it.
    Session(sys::System& system, Connection connection, const std::string& model);

    form::Context& context() { return context_; }
    femap::Application& femap() { return context_.femap(); }
    const Connection& connection() const { return connection_; }

private:
    Connection connection_;
    form::NoWindow window_;
    form::MainForm form_;
    form::Context context_;
};

/// The path as FEMAP takes it, wherever its own working folder is.
std::string fullPath(const std::string& path);

}  // namespace loop
