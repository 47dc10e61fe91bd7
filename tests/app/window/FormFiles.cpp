#include "FormFiles.h"

#include <windows.h>

#include <fstream>
#include <iterator>
#include <system_error>

namespace driver
{

FormFiles::FormFiles()
{
    static const std::filesystem::path temporary = std::filesystem::temp_directory_path();
    static int number = 0;
    folder_ = temporary / ("velmar-form-" + std::to_string(GetCurrentProcessId()) + "-" +
                           std::to_string(++number));
    std::filesystem::create_directories(folder_);
    std::filesystem::copy_file(std::filesystem::path(SOURCE_FOLDER) / "examples/panel.neu",
                               folder_ / "panel.neu");
    SetEnvironmentVariableW(L"TEMP", folder_.c_str());
    std::filesystem::create_directories(userData());
    SetEnvironmentVariableW(L"LOCALAPPDATA", userData().c_str());
}

FormFiles::~FormFiles()
{
    std::error_code ignored;  // a folder that stays behind harms nothing
    std::filesystem::remove_all(folder_, ignored);
    std::filesystem::remove_all(userData(), ignored);
}

std::filesystem::path FormFiles::userData() const
{
    return folder_.native() + L"-data";
}

bool FormFiles::has(const std::string& name) const
{
    return std::filesystem::exists(folder_ / name);
}

std::string FormFiles::read(const std::string& name) const
{
    std::ifstream file(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace driver
