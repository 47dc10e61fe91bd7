#include "loop/WholeFile.h"

#include "generate/TextFile.h"
#include "system/PendingError.h"

namespace loop
{

namespace
{

template <class Step>
auto namingFile(const std::string& path, Step&& step)
{
    try {
        return step();
    }
    catch (const sys::RuntimeError& error) {
        throw generate::notWritten(error, path);
    }
}

}  // namespace

WholeFile::WholeFile(sys::System& system, const std::string& path)
    : system_(system),
      path_(path),
      temporary_(namingFile(path, [&] { return system.files.createBeside(path); }))
{}

WholeFile::~WholeFile()
{
    if (isClosed_)
        return;
    temporary_.file.reset();
    sys::PendingError ignored;  // the error that ended the writing says more
    ignored.attempt([&] { system_.files.remove(temporary_.path); });
}

void WholeFile::write(std::string_view bytes)
{
    namingFile(path_, [&] { temporary_.file->write(bytes); });
}

void WholeFile::close()
{
    namingFile(path_, [&] {
        temporary_.file->flush();
        temporary_.file->close();
        system_.files.replace(path_, temporary_.path);
    });
    isClosed_ = true;
}

}  // namespace loop
