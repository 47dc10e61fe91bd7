// A file of any bytes that appears whole or not at all, as generate::TextFile does for lines.
#pragma once

#include "system/System.h"

#include <memory>
#include <string>
#include <string_view>

namespace loop
{

class WholeFile
{
public:
    /// All raise RuntimeError that names the file, the reason and what to do.
    WholeFile(sys::System& system, const std::string& path);
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    void write(std::string_view bytes);
    /// Gives the file its final name, in place of what had that name.
    void close();

private:
    sys::System& system_;
    std::string path_;
    sys::TemporaryFile temporary_;
    bool isClosed_ = false;
};

}  // namespace loop
