#include "femap/com/Apartment.h"
#include "standin/Generations.h"
#include "standin/StartedStandin.h"
#include "standin/Transcript.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>

namespace comtest
{

using femap::com::Dispatch;
using femap::com::Variant;

namespace
{

enum Generation
{
    both,
    classicOnly,
    modernOnly,
};

/// How a member is declared: i I4, d R8, b BOOL, s BSTR, v VARIANT; capital letters are filled.
struct Declared
{
    const char* object;  // what the application calls it; empty: the application itself
    const char* member;
    const char* arguments;
    bool isMethod;
    Generation generation = both;
};

// clang-format off
constexpr Declared declared[] = {
    {"", "feSet",                  "",        false},
    {"", "feNode",                 "",        false},
    {"", "feElem",                 "",        false},
    {"", "feProp",                 "",        false},
    {"", "feMatl",                 "",        false},
    {"", "feFunction",             "",        false},
    {"", "feLoadDefinition",       "",        false},
    {"", "feOutputSet",            "",        false},
    {"", "feOutput",               "",        false, classicOnly},
    {"", "feResults",              "",        false},
    {"", "ModelName",              "",        false},
    {"", "Info_ActiveID",          "i",       false},
    {"", "feAppVisible",           "b",       true},
    {"", "feFileOpen",             "bs",      true},
    {"", "feAppGetAllModels",      "IV",      true},
    {"", "feAppLock",              "",        true},
    {"", "feAppUnlock",            "",        true},
    {"", "feAppMessage",           "is",      true},
    {"", "feAppStatusShow",        "bi",      true},
    {"", "feAppStatusUpdate",      "i",       true},
    {"", "feAppRegisterAddInPane", "biibbii", true},
    {"", "feMeasureMeshMassProp",  "iibbDDDDDDVVVVV", true},
    {"", "feOutputConvertV2020VectorIDToV2019V2", "i", true, modernOnly},

    {"feSet", "ID",              "",    false},
    {"feSet", "Count",           "",    true},
    {"feSet", "Reset",           "",    true},
    {"feSet", "First",           "",    true},
    {"feSet", "Next",            "",    true},
    {"feSet", "clear",           "",    true},
    {"feSet", "AddAll",          "i",   true},
    {"feSet", "AddArray",        "iv",  true},
    {"feSet", "GetArray",        "IV",  true},
    {"feSet", "Copy",            "i",   true},
    {"feSet", "Select",          "ibs", true},
    {"feSet", "SelectMultiID",   "iis", true, classicOnly},
    {"feSet", "SelectMultiIDV2", "iis", true, modernOnly},

    {"feNode", "Get",           "i",         true},
    {"feNode", "x",             "",          false},
    {"feNode", "type",          "",          false},
    {"feNode", "GetCoordArray", "iIVV",      true},
    {"feNode", "GetAllArray",   "iIVVVVVVVV", true},
    {"feElem", "Get",           "i",         true},
    {"feElem", "orient",        "i",         false},
    {"feElem", "GetAllArray",   "iIVVVVVVVVVVVVVVV", true},
    {"feProp", "Get",           "i",         true},
    {"feProp", "pval",          "i",         false},
    {"feProp", "vpval",         "",          false},
    {"feProp", "GetTitleList",  "iiIVV",     true},
    {"feProp", "GetValueArray", "ivvV",      true, modernOnly},
    {"feMatl", "Get",           "i",         true},
    {"feMatl", "Ex",            "",          false},
    {"feMatl", "vmval",         "",          false},
    {"feMatl", "GetValueArray", "ivvV",      true, modernOnly},

    {"feOutput", "setID",              "",    false, classicOnly},
    {"feOutput", "Get",                "i",   true, classicOnly},
    {"feOutput", "ID",                 "",    false, classicOnly},
    {"feOutput", "title",              "",    false, classicOnly},
    {"feOutput", "Value",              "i",   false, classicOnly},
    {"feOutput", "maxval",             "",    false, classicOnly},
    {"feOutput", "minval",             "",    false, classicOnly},
    {"feOutput", "GetOutputListAtSet", "ivV", true, classicOnly},
    {"feOutput", "GetScalarAtNodeSet", "iV",  true, classicOnly},
    {"feOutputSet", "Get",             "i",   true},
    {"feOutputSet", "OutputVectors",   "i",   true, classicOnly},

    {"feResults", "clear",           "",       true},
    {"feResults", "AddColumnV2",     "iibIV",  true, modernOnly},
    {"feResults", "Populate",        "",       true},
    {"feResults", "GetColumnMinMax", "iiIIDD", true},
    {"feResults", "GetColumn",       "iVV",    true},
    {"feResults", "EntityValueV2",   "iiiD",   true, modernOnly},
    {"feResults", "VectorExistsV2",  "ii",     true, modernOnly},
    {"feResults", "VectorTitleV2",   "iiS",    true, modernOnly},
    {"feResults", "VectorTitlesV2",  "ibiiIVV", true, modernOnly},
    {"feResults", "VectorsV2",       "iib",    true, modernOnly},

    {"feFunction", "Get",             "i",   true},
    {"feFunction", "ID",              "",    false},
    {"feFunction", "title",           "",    false},
    {"feFunction", "SelectID",        "s",   true},
    {"feFunction", "GetFunctionList", "IVV", true},

    {"feLoadDefinition", "Get",           "i", true},
    {"feLoadDefinition", "setID",         "",  false},
    {"feLoadDefinition", "ID",            "",  false},
    {"feLoadDefinition", "title",         "",  false},
    {"feLoadDefinition", "loadType",      "",  false},
    {"feLoadDefinition", "dataType",      "",  false},
    {"feLoadDefinition", "ResetNextLoad", "",  true},
    {"feLoadDefinition", "NextLoad",      "O", true},
};
// clang-format on

// Storage for what the members fill.
struct Out
{
    LONG number = 0;
    double real = 0;
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
    bool isClassic = GetParam() == std::string("--classic");
    StartedStandin standin{std::string(GetParam()) + " --model \"" + panelModel() + '"'};

    bool isThere(const Declared& one) const
    {
        return one.generation == both || (one.generation == classicOnly) == isClassic;
    }
    // As the server sees it.
    IDispatch* objectOf(const Declared& one)
    {
        if (one.object[0] == '\0') {
            CLSID id{};
            IUnknown* running = nullptr;
            IDispatch* application = nullptr;
            CLSIDFromProgID(L"femap.model", &id);
            GetActiveObject(id, nullptr, &running);
            running->QueryInterface(IID_PPV_ARGS(&application));
            running->Release();
            return application;
        }
        return standin.control().call(one.object).takeObject();
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
               UINT& wrongArgument)
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
    return code;
}

constexpr WORD reading = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

INSTANTIATE_TEST_SUITE_P(BothGenerations, MembersOf, bothGenerations, nameOfGeneration);

// How one member is called, right and wrong.
void tryMember(IDispatch* object, const Declared& one, DISPID number)
{
    SCOPED_TRACE(std::string(one.object) + '.' + one.member);
    const std::string types = one.arguments;
    Out out;
    UINT place = 99;
    const auto arguments = [&] {
        std::vector<Variant> list;
        for (const char type : types)
            list.push_back(fitting(type, out));
        return list;
    };
    std::vector<Variant> list = arguments();
    const HRESULT called = invoke(object, number, reading, list, place);
    EXPECT_TRUE(called == S_OK || called == DISP_E_EXCEPTION) << std::hex << called;

    list = arguments();
    const HRESULT asProperty = invoke(object, number, DISPATCH_PROPERTYGET, list, place);
    EXPECT_EQ(asProperty == DISP_E_MEMBERNOTFOUND, one.isMethod) << std::hex << asProperty;

    list = arguments();
    list.emplace_back(1);
    EXPECT_EQ(invoke(object, number, reading, list, place), DISP_E_BADPARAMCOUNT);

    for (std::size_t i = 0; i < types.size(); ++i) {
        if (types[i] == 'v')  // takes anything
            continue;
        list = arguments();
        list[i] = wrong(types[i], out);
        place = 99;
        EXPECT_EQ(invoke(object, number, reading, list, place), DISP_E_TYPEMISMATCH) << i;
        EXPECT_EQ(place, types.size() - 1 - i);
    }
}

}  // namespace

TEST_P(MembersOf, AGenerationAreCalledAsDeclaredAndRefusedOtherwise)
{
    standin.control().call("standinPick", "cancel");
    for (const Declared& one : declared) {
        if (!isThere(one) && one.object == std::string("feOutput"))
            continue;
        IDispatch* const object = objectOf(one);
        DISPID number = 0;
        const HRESULT found = numberOf(object, one.member, number);
        EXPECT_EQ(found, isThere(one) ? S_OK : DISP_E_UNKNOWNNAME) << one.member;
        for (int dialogs = 0; dialogs < 4; ++dialogs)
            if (std::string(one.member).starts_with("Select"))
                standin.control().call("standinPick", "cancel");
        if (found == S_OK)
            tryMember(object, one, number);
        object->Release();
    }
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

TEST_P(MembersOf, TheAdapterAreAllInTheList)
{
    const std::string calls = temporaryFile("standin-members.txt");
    runningFemap()->call("standinRecord", calls);
    const auto pick = [this](const char* answer) { standin.control().call("standinPick", answer); };
    const std::unique_ptr<femap::Application> femap = femap::com::ComConnector(nullptr).attach();
    ofApplication(*femap);
    ofSets(*femap);
    ofSelections(*femap, pick);
    ofOutputVectors(*femap);
    ofFunctions(*femap, pick);
    ofLoadDefinitions(*femap);
    ofMassProperties(*femap);

    std::set<std::string> unknown;
    for (const std::string& line : linesOf(calls)) {
        const std::string call = line.substr(0, line.find('('));
        const std::string member = call.substr(call.find('.') + 1);
        const bool isOfLoad = call.starts_with("load.");
        const bool isListed =
            std::any_of(std::begin(declared), std::end(declared),
                        [&](const Declared& one) { return member == one.member; });
        if (!isOfLoad && !isListed && !member.starts_with("standin"))
            unknown.insert(call);
    }

    EXPECT_THAT(unknown, testing::IsEmpty());
}

}  // namespace comtest
