// Copies of a study's folder, in which points run side by side with the model host.
#pragma once

#include "loop/evaluate/Study.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace loop::evaluate
{

/// Folders beside the model that go with their owner. Each has the model as a neutral file, the
/// files of "Apply" that a run needs, and further ones.
class StudyCopies
{
public:
    /// The further files are named as from the study's folder. Raises RuntimeError when one cannot
    /// be copied.
    StudyCopies(const Study& study, std::size_t count, std::span<const std::string> furtherFiles);
    ~StudyCopies();
    StudyCopies(const StudyCopies&) = delete;
    StudyCopies& operator=(const StudyCopies&) = delete;

    /// As the beginnings of paths.
    const std::vector<std::string>& folders() const { return folders_; }

private:
    void removeAll() const;

    std::string root_;
    std::vector<std::string> folders_;
};

}  // namespace loop::evaluate
