// Where a model's generated files lie and what they are named after.
#pragma once

#include "form/Context.h"

#include <string>
#include <string_view>

namespace generate
{

struct ModelPath
{
    std::string folder;  // ends in the path separator
    std::string name;    // of the model's file, without its extension
};

/// The part of a path up to and including its last separator.
std::string modelFolder(const std::string& path);

/// Raises RuntimeError (InvalidCall) when the only "." lies in a folder's name.
ModelPath splitModelPath(const std::string& path);

/// The same of the model that FEMAP has open. Raises RuntimeError when there is none.
ModelPath openModelPath(const form::Context& context);

/// What follows the last "." of a file name without its folder; the whole name when it has none.
std::string GetFileExtension(std::string_view filename);

/// What an engineer reads when the open model has no file yet.
constexpr std::string_view modelMustBeSaved = "Model must be saved in .MOD format first";

}  // namespace generate
