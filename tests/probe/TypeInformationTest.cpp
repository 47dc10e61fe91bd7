#include "femap/com/Apartment.h"
#include "probe/TypeInformation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <objbase.h>

namespace probe
{

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

// An object that is on every Windows and has type information.
class Dictionary
{
public:
    Dictionary()
    {
        CLSID id{};
        if (SUCCEEDED(CLSIDFromProgID(L"Scripting.Dictionary", &id)))
            static_cast<void>(
                CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object_)));
    }
    ~Dictionary()
    {
        if (object_ != nullptr)
            object_->Release();
    }
    Dictionary(const Dictionary&) = delete;
    Dictionary& operator=(const Dictionary&) = delete;

    IDispatch* get() const { return object_; }
    DISPID numberOf(const wchar_t* member) const
    {
        std::wstring name = member;
        LPOLESTR pointer = name.data();
        DISPID number = DISPID_UNKNOWN;
        EXPECT_EQ(object_->GetIDsOfNames(IID_NULL, &pointer, 1, LOCALE_SYSTEM_DEFAULT, &number),
                  S_OK);
        return number;
    }

private:
    IDispatch* object_ = nullptr;
};

}  // namespace

TEST(TypeInformation, TellsKindsAndTypes)
{
    const femap::com::Apartment apartment;
    const Dictionary dictionary;
    ASSERT_NE(dictionary.get(), nullptr);

    std::string why;
    const auto declarations = declarationsOf(*dictionary.get(), why);

    ASSERT_TRUE(declarations) << why;
    const Declared& count = declarations->at(dictionary.numberOf(L"Count"));
    EXPECT_FALSE(count.isMethod);
    EXPECT_THAT(count.arguments, IsEmpty());
    EXPECT_EQ(count.returned, VT_I4);
    const Declared& exists = declarations->at(dictionary.numberOf(L"Exists"));
    EXPECT_TRUE(exists.isMethod);
    EXPECT_THAT(exists.arguments, ElementsAre(VT_BYREF | VT_VARIANT));
    EXPECT_EQ(exists.returned, VT_BOOL);
}

}  // namespace probe
