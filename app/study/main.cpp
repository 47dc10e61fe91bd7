#include "app/study/Platform.h"
#include "app/study/StudyProgram.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>

namespace
{

template <class Character>
int run(int argc, Character* argv[])
{
    try {
        std::vector<std::string> arguments;
        for (int i = 1; i < argc; ++i) {
            const std::u8string utf8 = std::filesystem::path(argv[i]).u8string();
            arguments.emplace_back(utf8.begin(), utf8.end());
        }
        logging::System system = study::platformSystem();
        const bool showsColours =
            system.environment("NO_COLOR").empty() && study::errorsShowColours();
        return study::runStudy(arguments,
                               {std::cin, std::cout, std::cerr, system, study::runningFemap(),
                                study::recordedForm(), showsColours});
    }
    catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "velmar-study: %s\n", error.what()));
        return EXIT_FAILURE;
    }
}

}  // namespace

#ifdef _WIN32
int wmain(int argc, wchar_t* argv[])
#else
int main(int argc, char* argv[])
#endif
{
    return run(argc, argv);
}
