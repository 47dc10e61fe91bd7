// A file that is written nowhere: it is compared, while it comes, with the one that is there.
#pragma once

#include "preview/Preview.h"
#include "system/Files.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace preview
{

class Comparison : public sys::OutputFile
{
public:
    /// Tells size and first difference in the file, which must outlive this. there: with what it is
    /// compared, or null. text: where the text is kept, unless it gets too long, or null.
    Comparison(File& file, std::unique_ptr<sys::InputFile> there, std::optional<std::string>* text);

    void write(std::string_view bytes) override;
    void flush() override {}
    /// Nothing comes any more.
    void close() override;

private:
    void keep(std::string_view bytes);
    void compare(std::string_view bytes);
    bool hasNext();
    void endAtDifference();

    File& file_;
    std::unique_ptr<sys::InputFile> there_;  // null behind the first difference, too
    std::optional<std::string>* text_;
    std::string piece_;  // of what is there
    std::size_t taken_ = 0;
    std::size_t line_ = 1;
    std::size_t lines_ = 0;  // of the text that is kept
};

}  // namespace preview
