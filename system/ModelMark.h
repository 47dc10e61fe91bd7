// The mark of a form on the model that it works on, by which another form sees that it is there.
#pragma once

#include <memory>
#include <string>

namespace sys
{

/// Goes with its process at the latest.
class ModelMark
{
public:
    virtual ~ModelMark() = default;

    /// Whether another form of the user's session had one on the model when this one was set.
    virtual bool isSecond() const = 0;
};

/// Sets one on the model with this full path, in small or capital letters, with either slash. Null
/// where there are no such marks.
std::unique_ptr<ModelMark> markModel(const std::string& path);

}  // namespace sys
