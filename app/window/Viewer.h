// Shows the guide, a folder or the log to an engineer who asks for it. That is the only other
// program that the form starts.
#pragma once

#include <string>

namespace window
{

class Viewer
{
public:
    virtual ~Viewer() = default;

    /// Opens a file or a folder. Raises sys::RuntimeError with the reason why not.
    virtual void open(const std::string& path) = 0;
};

/// What Windows is set to for such a file. Its library is loaded when it is asked for only.
class WindowsViewer : public Viewer
{
public:
    void open(const std::string& path) override;
};

}  // namespace window
