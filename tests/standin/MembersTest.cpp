#include "femap/TypeLibrary.h"
#include "femap/com/Apartment.h"
#include "femap/com/FemapWindow.h"
#include "standin/Generations.h"
#include "standin/Letters.h"
#include "standin/StartedStandin.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <utility>

namespace comtest
{

namespace library = femap::library;
using femap::com::Dispatch;
using femap::com::Variant;

namespace
{

// Storage for what the members fill.
struct Out
{
    LONG number = 0;
    double real = 0;
    VARIANT_BOOL flag = VARIANT_FALSE;
    BSTR text = nullptr;
    IDispatch* object = nullptr;
    Variant any;

    Out() = default;
    ~Out()
    {
        SysFreeString(text);
        if (object != nullptr)
            object->Release();
    }
    Out(const Out&) = delete;
    Out& operator=(const Out&) = delete;
};

Variant fitting(char type, Out& out)
{
    switch (type) {
    case 'i':
        return 1;
    case 'b':
        return false;
    case 's':
        return "";
    case 'v':
        return std::vector<int>{1};
    case 'I':
        return &out.number;
    case 'D':
        return &out.real;
    case 'B':
        return &out.flag;
    case 'S':
        return &out.text;
    case 'O':
        return &out.object;
    default:
        return &out.any;
    }
}

// What must be refused in its place.
Variant wrong(char type, Out& out)
{
    if (type == 'V')
        return &out.number;
    if (std::isupper(static_cast<unsigned char>(type)) != 0)
        return &out.any;
    if (type == 's')
        return std::vector<int>{1};
    return "x";
}

struct MembersOf : testing::TestWithParam<const char*>
{
    femap::com::Apartment apartment;
    unsigned version = GetParam() == std::string("--classic") ? library::v11_2 : library::v2306;
    StartedStandin standin{std::string(GetParam()) + " --model \"" + panelModel() + '"'};

    // An object of the kind as the server sees it; null for one that the version or the stand-in
    // does not hand out.
    IDispatch* objectOf(const library::Interface& kind)
    {
        if (kind.object.empty())
            return application();
        const std::string object(kind.object);
        return standin.control().has(object) ? standin.control().call(object).takeObject()
                                             : loadOf(kind);
    }

private:
    static IDispatch* application()
    {
        CLSID id{};
        IUnknown* running = nullptr;
        IDispatch* application = nullptr;
        CLSIDFromProgID(L"femap.model", &id);
        GetActiveObject(id, nullptr, &running);
        running->QueryInterface(IID_PPV_ARGS(&application));
        running->Release();
        return application;
    }
    // The first load of the first definition that has loads of the kind.
    IDispatch* loadOf(const library::Interface& kind)
    {
        static const std::map<std::string_view, int> types = {
            {"ILoadMesh", 13}, {"ILoadGeom", 14}, {"ILoadNTemp", 15}, {"ILoadETemp", 16}};
        const auto type = types.find(kind.name);
        Dispatch definition = standin.control().object("feLoadDefinition");
        IDispatch* load = nullptr;
        for (int id = 1; id < 20 && type != types.end() && load == nullptr; ++id)
            if (definition.call("Get", id).number() == -1 &&
                definition.call("dataType").number() == type->second)
                definition.call("NextLoad", &load);
        return load;
    }
};

HRESULT numberOf(IDispatch* object, const std::string& name, DISPID& number)
{
    std::wstring wide = windows::toWide(name);
    LPOLESTR pointer = wide.data();
    return object->GetIDsOfNames(IID_NULL, &pointer, 1, LOCALE_SYSTEM_DEFAULT, &number);
}

// The arguments are in calling order.
HRESULT invoke(IDispatch* object, DISPID number, WORD flags, std::vector<Variant>& arguments,
               UINT& wrongArgument, VARTYPE* returned = nullptr)
{
    std::vector<VARIANT> views;
    for (auto one = arguments.rbegin(); one != arguments.rend(); ++one)
        views.push_back(*one->raw());
    DISPPARAMS parameters{views.data(), nullptr, static_cast<UINT>(views.size()), 0};
    Variant result;
    EXCEPINFO exception{};
    const HRESULT code = object->Invoke(number, IID_NULL, LOCALE_SYSTEM_DEFAULT, flags, &parameters,
                                        result.raw(), &exception, &wrongArgument);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    if (returned != nullptr)
        *returned = result.raw()->vt;
    return code;
}

constexpr WORD reading = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

INSTANTIATE_TEST_SUITE_P(BothGenerations, MembersOf, bothGenerations, nameOfGeneration);

// How one member is called, right and wrong.
void tryMember(IDispatch* object, const library::Member& one)
{
    const std::string types(one.arguments);
    Out out;
    UINT place = 99;
    const auto arguments = [&] {
        std::vector<Variant> list;
        for (const char type : types)
            list.push_back(fitting(type, out));
        return list;
    };
    std::vector<Variant> list = arguments();
    VARTYPE returned = VT_EMPTY;
    const HRESULT called = invoke(object, one.number, reading, list, place, &returned);
    EXPECT_TRUE(called == S_OK || called == DISP_E_EXCEPTION) << std::hex << called;
    EXPECT_TRUE(called != S_OK || isOf(returned, one.returned)) << returned;

    list = arguments();
    const HRESULT asProperty = invoke(object, one.number, DISPATCH_PROPERTYGET, list, place);
    EXPECT_EQ(asProperty == DISP_E_MEMBERNOTFOUND, one.kind == library::Kind::Method)
        << std::hex << asProperty;

    list = arguments();
    list.emplace_back(1);
    EXPECT_EQ(invoke(object, one.number, reading, list, place), DISP_E_BADPARAMCOUNT);

    for (std::size_t i = 0; i < types.size(); ++i) {
        if (types[i] == 'v')  // takes anything
            continue;
        list = arguments();
        list[i] = wrong(types[i], out);
        place = 99;
        EXPECT_EQ(invoke(object, one.number, reading, list, place), DISP_E_TYPEMISMATCH) << i;
        EXPECT_EQ(place, types.size() - 1 - i);
    }
}

// Tries each of the kind's members that the object has. Returns how many it has.
int tryMembers(IDispatch* object, const library::Interface& kind, unsigned version)
{
    int offered = 0;
    for (const library::Member& member : kind.members) {
        SCOPED_TRACE(std::string(kind.name) + '.' + std::string(member.name));
        DISPID number = 0;
        const bool isThere = numberOf(object, std::string(member.name), number) == S_OK;
        const library::Member* const declared = library::find(kind.members, member.name, version);
        if (!isThere || (member.versions & version) == 0) {
            // Of another version alone.
            EXPECT_TRUE(!isThere || declared != nullptr);
            continue;
        }
        ++offered;
        EXPECT_EQ(number, member.number);
        if (!member.name.starts_with("Select"))  // those open a window
            tryMember(object, member);
    }
    return offered;
}

}  // namespace

TEST_P(MembersOf, AGenerationAreCalledAsItsTypeLibraryDeclaresAndRefusedOtherwise)
{
    for (const library::Interface& kind : library::interfaces) {
        IDispatch* const object = objectOf(kind);
        const bool isSuperseded = kind.name == "IOutput" && version != library::v11_2;
        EXPECT_EQ(object == nullptr, isSuperseded) << kind.name;
        if (object == nullptr)
            continue;
        EXPECT_GT(tryMembers(object, kind, version), 4) << kind.name;
        object->Release();
    }
}

TEST_P(MembersOf, FemapThatOpenADialogAreCalledInTheSameWay)
{
    Dispatch set = standin.control().object("feSet");
    const char* const many = version == library::v11_2 ? "SelectMultiID" : "SelectMultiIDV2";
    const std::vector<std::pair<const char*, int>> answers = {{"cancel", 2}, {"missing", 4}};

    for (const auto& [answer, code] : answers) {
        for (int dialog = 0; dialog < 3; ++dialog)
            standin.control().call("standinPick", answer);
        EXPECT_EQ(set.call("Select", 8, true, "Elements").number(), code);
        EXPECT_EQ(set.call(many, 46, 1, "Load definitions").number(), code);
        EXPECT_EQ(standin.control().object("feFunction").call("SelectID", "").number(), code);
    }
    EXPECT_THROW(set.call("Select", 8, true), sys::RuntimeError);
    EXPECT_THROW(set.call(many, "x", 1, ""), sys::RuntimeError);
}

TEST_P(MembersOf, FemapAreFoundWhateverTheCaseOfTheirNames)
{
    IDispatch* const set = standin.control().call("feSet").takeObject();
    DISPID upper = 0;
    DISPID lower = 1;

    EXPECT_EQ(numberOf(set, "COUNT", upper), S_OK);
    EXPECT_EQ(numberOf(set, "count", lower), S_OK);

    EXPECT_EQ(upper, lower);
    set->Release();
}

TEST_P(MembersOf, FemapTakeAWholeRealForAnIndex)
{
    Dispatch properties = standin.control().object("feProp");
    properties.call("Get", 1);

    EXPECT_EQ(properties.call("pval", 0.0).real(), properties.call("pval", 0).real());
    EXPECT_THROW(properties.call("pval", 0.5), sys::RuntimeError);
}

TEST_P(MembersOf, FemapNameAWindowOfItsProcess)
{
    const HWND window = femap::com::mainWindowOf(standin.control());

    EXPECT_EQ(femap::com::processOf(window), standin.processID());
}

TEST_P(MembersOf, FemapTellThatAllIsSaved)
{
    EXPECT_EQ(standin.control().call("feFileIsModified").number(), 0);
}

TEST_P(MembersOf, ElementsTakeTwoIndicesForAnOffset)
{
    Dispatch element = standin.control().object("feElem");
    element.call("Get", 1);

    EXPECT_EQ(element.call("offset", 0, 0).real(), element.call("PlateOffset").real());
    EXPECT_EQ(element.call("offset", 1, 2).real(), 0);
    EXPECT_THROW(element.call("offset", 0), sys::RuntimeError);
    EXPECT_THROW(element.call("offset", 0, 3), sys::RuntimeError);
    EXPECT_THROW(element.call("offset", 2, 0), sys::RuntimeError);
}

TEST(StandinWithChanges, TellsThatTheyAreNotSaved)
{
    const femap::com::Apartment apartment;
    StartedStandin standin("--modified");

    EXPECT_EQ(standin.control().call("feFileIsModified").number(), -1);
}

}  // namespace comtest
