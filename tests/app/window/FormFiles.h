#pragma once

#include <filesystem>
#include <string>

namespace driver
{

/// A fresh folder with a copy of the example model; the form's log lands there too.
class FormFiles
{
public:
    FormFiles();
    ~FormFiles();
    FormFiles(const FormFiles&) = delete;
    FormFiles& operator=(const FormFiles&) = delete;

    const std::filesystem::path& folder() const { return folder_; }
    /// What Windows calls the local application data, here one of its own.
    std::filesystem::path userData() const;
    bool has(const std::string& name) const;
    std::string read(const std::string& name) const;
    std::string log() const { return read("korva/form.log"); }

private:
    std::filesystem::path folder_;
};

}  // namespace driver
