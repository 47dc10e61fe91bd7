// GoogleTest's own main, but under the locale that the variable VELMAR_LOCALE names, if any. It
// ends with 77 where the machine does not have that locale.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <locale>
#include <stdexcept>

#ifdef _WIN32
#include <malloc.h>
#endif

#ifdef __SANITIZE_ADDRESS__
// The C library never frees what it makes of the path to locales.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:__argz_add_sep\n";
}
#endif

namespace
{

constexpr int exitSkipped = 77;

bool takeLocale(const char* name)
{
    if (name == nullptr)
        return true;
    try {
        std::locale::global(std::locale(name));  // C's locale goes with it
        return true;
    }
    catch (const std::runtime_error&) {
        std::cout << "Skipped: this machine has no locale " << name << '\n';
        return false;
    }
}

#ifdef _WIN32
// Ends the program after a test that damaged the heap. With the heap's checks switched on that is
// also one that wrote a byte too far.
class HeapWatch : public testing::EmptyTestEventListener
{
    void OnTestEnd(const testing::TestInfo& test) override
    {
        const int state = _heapchk();
        if (state != _HEAPOK && state != _HEAPEMPTY) {
            std::cout << test.test_suite_name() << '.' << test.name() << " damaged the heap\n";
            std::abort();
        }
    }
};
#endif

}  // namespace

int main(int argc, char* argv[])
{
    testing::InitGoogleMock(&argc, argv);
    if (!takeLocale(std::getenv("VELMAR_LOCALE")))
        return exitSkipped;
#ifdef _WIN32
    testing::UnitTest::GetInstance()->listeners().Append(new HeapWatch);  // GoogleTest owns it
#endif
    return RUN_ALL_TESTS();
}
