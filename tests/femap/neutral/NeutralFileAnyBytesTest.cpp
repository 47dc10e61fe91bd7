#include "fake/NeutralText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

using namespace neutral;
using namespace std::string_view_literals;
using testing::MatchesRegex;

namespace
{

// Either the text fits or the reader says in which line it does not.
void expectReadOrRefused(const std::string& text)
{
    const std::string error = errorOf(text);
    if (!error.empty()) {
        EXPECT_THAT(error, MatchesRegex("wing\\.neu:[0-9]+: .*\\. Export the model again .*"));
    }
}

constexpr std::string_view telling = "\0\n\r\t ,-+.0123456789EDx$<\x80\xFF"sv;

}  // namespace

TEST(NeutralFileAnyBytes, ACutAfterAnyByteIsReadOrRefused)
{
    const std::string text = completeFile();

    for (std::size_t size = 0; size < text.size(); ++size)
        expectReadOrRefused(text.substr(0, size));
}

TEST(NeutralFileAnyBytes, AChangedByteIsReadOrRefused)
{
    const std::string text = completeFile();

    for (std::size_t place = 0; place < text.size(); ++place) {
        std::string changed = text;
        changed[place] = telling[place * 7 % telling.size()];
        expectReadOrRefused(changed);
    }
}

TEST(NeutralFileAnyBytes, MissingAndDoubledLinesAreReadOrRefused)
{
    const std::string text = completeFile();

    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t length = text.find('\n', begin) + 1 - begin;
        expectReadOrRefused(std::string(text).erase(begin, length));
        expectReadOrRefused(std::string(text).insert(begin, text.substr(begin, length)));
        begin += length;
    }
}

TEST(NeutralFileAnyBytes, ManyChangesAtOnceAreReadOrRefused)
{
    const std::string text = completeFile();
    std::mt19937 random(3);

    for (int i = 0; i < 2000; ++i) {
        std::string changed = text;
        for (int change = 0; change < 1 + i % 6; ++change) {
            const std::size_t place = random() % changed.size();
            const std::size_t from = random() % changed.size();
            changed.replace(place, random() % 30, changed, from, random() % 30);
        }
        expectReadOrRefused(changed);
    }
}

TEST(NeutralFileAnyBytes, RandomBytesInEveryBlockAreReadOrRefused)
{
    std::mt19937 random(4);

    for (const int number : {100, 401, 402, 403, 404, 420, 450, 451, 507, 601, 927, 1051}) {
        for (int i = 0; i < 200; ++i) {
            std::string bytes;
            for (int size = 0; size < i; ++size)
                bytes += i % 2 ? telling[random() % telling.size()] : static_cast<char>(random());
            expectReadOrRefused(header() + block(number, bytes + "\n"));
            expectReadOrRefused(bytes);
        }
    }
}

TEST(NeutralFileAnyBytes, AVeryLongLineIsReadOrRefused)
{
    const std::string digits(2'000'000, '1');

    expectReadOrRefused(digits);
    expectReadOrRefused(header() + block(403, digits + "\n"));
    expectReadOrRefused(header() + block(402, "1,1,1,1\nT\n" + digits + "\n"));
    expectReadOrRefused(header() + block(450, "1,\n" + digits + "\n" + digits + "\n"));
    expectReadOrRefused(
        header() + block(451, vectorHead(1, 1, "T") + "1,2," + std::string(2'000'000, ',') + "\n"));
}
