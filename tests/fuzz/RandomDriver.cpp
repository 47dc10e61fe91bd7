// Runs a fuzz target where the compiler brings no fuzzer: first on every file of the folders it is
// given, then on random changes of them. Understands the fuzzer's own options as far as they are
// used here:
//
//   PROGRAM [-max_total_time=SECONDS] [-runs=0] [-artifact_prefix=PATH] FOLDER-OR-FILE...
//
// The bytes that ended the program are kept in the file PATH + "crash". VELMAR_SEED repeats a run.

#include "fake/RandomSeed.h"
#include "fuzz/Fuzz.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace
{

namespace fs = std::filesystem;

constexpr std::size_t longestInput = 65536;

struct Options
{
    double seconds = 0;
    std::string findingStart;
    std::vector<fs::path> places;
};

// What the handler of a crash needs.
std::string current;
std::string findingFile;

void keepFinding(int signal)
{
    std::ofstream(findingFile, std::ios::binary) << current;
    std::cerr << "The input that ended the program is in " << findingFile << std::endl;
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void watchForCrashes()
{
    std::signal(SIGABRT, keepFinding);
    for (const int signal : {SIGSEGV, SIGFPE, SIGILL}) {
        // A sanitizer that has its own handler reports first and aborts then.
        const auto before = std::signal(signal, keepFinding);
        if (before != SIG_DFL)
            std::signal(signal, before);
    }
}

Options optionsIn(const std::vector<std::string>& arguments)
{
    Options options;
    for (const std::string& argument : arguments) {
        const std::string value = argument.substr(argument.find('=') + 1);
        if (argument.starts_with("-max_total_time="))
            options.seconds = std::stod(value);
        else if (argument.starts_with("-artifact_prefix="))
            options.findingStart = value;
        else if (!argument.starts_with('-'))
            options.places.emplace_back(argument);
    }
    return options;
}

std::vector<std::string> readInputs(const std::vector<fs::path>& places)
{
    std::vector<fs::path> files;
    for (const fs::path& place : places) {
        if (!fs::is_directory(place))
            files.push_back(place);
        else
            for (const auto& entry : fs::directory_iterator(place))
                files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    std::vector<std::string> inputs;
    for (const fs::path& file : files) {
        std::ifstream in(file, std::ios::binary);
        if (!in)
            throw std::runtime_error(file.string() + " cannot be read");
        inputs.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    return inputs;
}

void run(const std::string& input)
{
    current = input;
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(current.data()), current.size());
}

class Mutator
{
public:
    Mutator(unsigned seed, const std::vector<std::string>& inputs) : random_(seed), inputs_(inputs)
    {}

    std::string next()
    {
        std::string text = any();
        for (std::size_t changes = 1 + below(6); changes > 0; --changes)
            change(text);
        text.resize(std::min(text.size(), longestInput));
        return text;
    }

private:
    std::size_t below(std::size_t bound) { return bound == 0 ? 0 : random_() % bound; }
    const std::string& any() { return inputs_[below(inputs_.size())]; }

    void change(std::string& text)
    {
        using namespace std::string_view_literals;
        static constexpr std::string_view telling[] = {
            "\0"sv,   "\n"sv,         "\r\n"sv,
            "\t"sv,   " "sv,          ","sv,
            "-"sv,    "-1"sv,         "0"sv,
            "$"sv,    "\""sv,         " | "sv,
            "."sv,    "1E400"sv,      "#"sv,
            "\xFF"sv, "nan"sv,        "\xC3"sv,
            "\x80"sv, "2147483648"sv, "99999999999999999999"sv};
        const std::size_t place = below(text.size());
        const std::size_t length = below(30);
        switch (below(5)) {
        case 0:
            text.replace(place, below(3), telling[below(std::size(telling))]);
            break;
        case 1:
            text.erase(place, length);
            break;
        case 2:
            text.insert(place, std::string(text, below(text.size()), length));
            break;
        case 3: {
            const std::string& other = any();
            text.replace(place, length, other, below(other.size()), below(400));
            break;
        }
        default:
            if (!text.empty())
                text[place] = static_cast<char>(random_());
        }
    }

    std::mt19937 random_;
    const std::vector<std::string>& inputs_;
};

}  // namespace

int main(int count, char** arguments)
{
    using Clock = std::chrono::steady_clock;

    const Options options = optionsIn({arguments + 1, arguments + count});
    findingFile = options.findingStart + "crash";
    watchForCrashes();
    std::vector<std::string> inputs = readInputs(options.places);
    if (inputs.empty())
        inputs.emplace_back();
    for (const std::string& input : inputs)
        run(input);
    std::cout << "Ran " << inputs.size() << " inputs\n";
    if (options.seconds <= 0)
        return 0;

    Mutator mutator(fake::randomSeed(), inputs);
    std::cout << std::flush;  // a sanitizer may end the program at once
    long runs = 0;
    const auto end = Clock::now() + std::chrono::duration<double>(options.seconds);
    for (; Clock::now() < end; ++runs)
        run(mutator.next());
    std::cout << "Ran " << runs << " changed ones\n";
    return 0;
}
