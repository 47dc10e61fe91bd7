#include "system/PatientFiles.h"

namespace sys
{

bool PatientFiles::folderExists(const std::string& path)
{
    return disk_.folderExists(path);
}

bool PatientFiles::isMissing(const std::string& path)
{
    return disk_.isMissing(path);
}

void PatientFiles::createFolder(const std::string& path)
{
    retriedWhileDenied(pause_, [&] { disk_.createFolder(path); });
}

std::unique_ptr<OutputFile> PatientFiles::create(const std::string& path)
{
    return retriedWhileDenied(pause_, [&] { return disk_.create(path); });
}

std::unique_ptr<OutputFile> PatientFiles::append(const std::string& path)
{
    return retriedWhileDenied(pause_, [&] { return disk_.append(path); });
}

std::unique_ptr<OutputFile> PatientFiles::openAlone(const std::string& path,
                                                    const LineCheck& mayEmpty)
{
    return retriedWhileDenied(pause_, [&] { return disk_.openAlone(path, mayEmpty); });
}

bool PatientFiles::fileExists(const std::string& path)
{
    return disk_.fileExists(path);
}

std::optional<FileFacts> PatientFiles::facts(const std::string& path)
{
    return disk_.facts(path);
}

std::string PatientFiles::read(const std::string& path)
{
    return retriedWhileDenied(pause_, [&] { return disk_.read(path); });
}

std::unique_ptr<InputFile> PatientFiles::openToRead(const std::string& path)
{
    return retriedWhileDenied(pause_, [&] { return disk_.openToRead(path); });
}

TemporaryFile PatientFiles::createBeside(const std::string& path)
{
    return retriedWhileDenied(pause_, [&] { return disk_.createBeside(path); });
}

void PatientFiles::demandReplaceable(const std::string& path)
{
    retriedWhileDenied(pause_, [&] { disk_.demandReplaceable(path); });
}

void PatientFiles::lookReplaceable(const std::string& path)
{
    disk_.lookReplaceable(path);
}

void PatientFiles::replace(const std::string& path, const std::string& by)
{
    retriedWhileDenied(pause_, [&] { disk_.replace(path, by); });
}

void PatientFiles::remove(const std::string& path)
{
    disk_.remove(path);
}

std::unique_ptr<FolderLock> PatientFiles::lockFolder(const std::string& folder)
{
    return disk_.lockFolder(folder);
}

}  // namespace sys
