#include "femap/com/Apartment.h"
#include "femap/com/ComForm.h"
#include "femap/com/RecordingObject.h"
#include "femap/com/WrittenModel.h"
#include "standin/ApplicationObject.h"
#include "standin/ChangesTranscript.h"
#include "standin/Generations.h"
#include "standin/Letters.h"
#include "standin/Server.h"
#include "standin/StandinHere.h"
#include "standin/StartedStandin.h"
#include "standin/Transcript.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <numeric>
#include <regex>
#include <set>

namespace comtest
{

using femap::Application;
using femap::com::ComApplication;

namespace
{

/// Gives the adapter over a stand-in in this process, with a record of what passes between them.
class RecordedFemap : public femap::Connector
{
public:
    RecordedFemap(Record& record, bool isClassic, const standin::Modes& modes = {})
        : record_(record), server(isClassic, modes)
    {}

    std::unique_ptr<Application> attach() override
    {
        application_.AddRef();
        return std::make_unique<ComApplication>(
            new RecordingObject(record_, &application_, library::interfaces[0]), dialogs,
            std::make_shared<femap::com::RetryPolicy>(), reading);
    }
    std::unique_ptr<Application> create() override { return attach(); }

private:
    Record& record_;

public:
    standin::Server server;
    femap::SelectionDialogs* dialogs = nullptr;
    Reading reading = Reading::InBulk;

private:
    standin::ApplicationObject application_{server};
};

std::vector<int> firstIDs(int last)
{
    std::vector<int> ids(static_cast<std::size_t>(last));
    std::iota(ids.begin(), ids.end(), 1);
    return ids;
}

// What the adapter does one by one.
void readPanel(RecordedFemap& recorded)
{
    const std::unique_ptr<Application> femap = recorded.attach();
    const auto pick = [&](const char* answer) { recorded.server.selections.queue(answer); };
    femap->feAppVisible(true);
    femap->Info_Version();
    femap->feOutput();  // of no output set
    femap->feFileOpen(false, panelModel());
    femap->feAppStatusShow(true, 100);
    femap->feAppStatusUpdate(50);
    ofApplication(*femap);
    ofSets(*femap);
    ofSelections(*femap, pick);
    ofEntities(*femap);
    ofOutputVectors(*femap);
    ofFunctions(*femap, pick);
    ofLoadDefinitions(*femap);
    ofMassProperties(*femap);
    ofChanges(*femap, SolverFolder());
}

// What it does where FEMAP gives values for places beyond its arrays.
void readBeyond(Record& record, bool isClassic)
{
    RecordedFemap recorded(record, isClassic, withModes({standin::Mode::BeyondIsZero}));
    readPanel(recorded);
}

// What it does for the form.
void selectInForm(RecordedFemap& recorded, Reading reading)
{
    recorded.server.host.openNeutralFile(writeModel({.nodes = 60,
                                                     .elements = 60,
                                                     .properties = 24,
                                                     .materials = 24,
                                                     .nodeVectors = 4,
                                                     .plateVectors = 4},
                                                    "declared-calls.neu"));
    recorded.reading = reading;
    ComForm f(recorded);
    recorded.dialogs = &f.dialogs;
    f.context.application = recorded.attach();
    f.dialog.UpdateCollection();
    f.selectInputs("Nodes", firstIDs(60), {"x", "y"});
    f.selectInputs("Nodes", firstIDs(60));
    f.selectInputs("Elements", firstIDs(60));
    f.selectInputs("Properties", firstIDs(24), {}, 4);
    f.selectInputs("Materials", firstIDs(24));
    f.selectOutputs("Nodes", firstIDs(60), 3);
    f.selectOutputs("Elements", firstIDs(60), 3, 3);
    f.refreshAll();
    const std::unique_ptr<femap::Function> function = f.context.femap().feFunction();
    f.pick({1});
    function->SelectID("Function");
    f.context.femap().feAppMessage(femap::MessageColour::Normal, "done");
}

struct DeclaredCalls : testing::TestWithParam<const char*>
{
    bool isClassic = GetParam() == std::string("--classic");
    unsigned version = isClassic ? library::v11_2 : library::v2306;
    femap::com::Apartment apartment;
    Record record;

    DeclaredCalls()
    {
        RecordedFemap recorded(record, isClassic);
        readPanel(recorded);
        selectInForm(recorded, Reading::OneByOne);
        selectInForm(recorded, Reading::InBulk);
        readBeyond(record, isClassic);
    }
};

INSTANTIATE_TEST_SUITE_P(OfTheAdapter, DeclaredCalls, bothGenerations, nameOfGeneration);

std::string shown(const MadeCall& call)
{
    return call.interfaceName + '.' + call.name;
}

}  // namespace

TEST_P(DeclaredCalls, FindTheMembersThatTheTypeLibraryHas)
{
    std::set<std::string> notFound;
    for (const AskedName& asked : record.names) {
        const std::string name = asked.interfaceName + '.' + asked.name;
        const library::Member* const declared =
            library::find(asked.interfaceName, asked.name, version);
        if (asked.answer == S_OK)
            EXPECT_EQ(declared == nullptr ? 0 : declared->number, asked.number) << name;
        else if (declared != nullptr)
            notFound.insert(name);
    }

    EXPECT_GT(record.names.size(), 100U);
    EXPECT_THAT(notFound, testing::IsEmpty());
}

TEST_P(DeclaredCalls, PassWhatTheTypeLibraryDeclares)
{
    for (const MadeCall& call : record.calls) {
        const library::Member& declared = *library::find(call.interfaceName, call.name, version);
        std::string types(declared.arguments);
        if (call.flags == DISPATCH_PROPERTYPUT) {
            EXPECT_NE(declared.kind, library::Kind::Method) << shown(call);
            types += declared.returned;
        }
        // Members that are asked with an index too many or too few are refused in every FEMAP.
        if (call.answer == DISP_E_BADPARAMCOUNT)
            continue;
        ASSERT_EQ(call.arguments.size(), types.size()) << shown(call);
        for (std::size_t i = 0; i < types.size(); ++i)
            EXPECT_TRUE(isOf(call.arguments[i], types[i])) << shown(call) << ' ' << i;
    }
}

TEST_P(DeclaredCalls, GetBackWhatTheTypeLibraryDeclares)
{
    for (const MadeCall& call : record.calls) {
        if (call.answer != S_OK || call.flags == DISPATCH_PROPERTYPUT)
            continue;
        const char returned = library::find(call.interfaceName, call.name, version)->returned;
        EXPECT_TRUE(isOf(call.returned, returned)) << shown(call) << ' ' << call.returned;
    }
}

// Windows lets a program to the front only as long as the one that allows it is there itself.
TEST(DialogsOfFemap, MayComeToTheFrontFromRightBeforeTheCallOn)
{
    const femap::com::Apartment apartment;
    Record record;
    standin::Server server(false);
    standin::ApplicationObject application(server);
    application.AddRef();
    const auto connection =
        std::make_shared<femap::com::Connection>(std::make_shared<femap::com::RetryPolicy>());
    std::vector<std::string> order;
    connection->letToFront = [&](DWORD process) {
        for (const MadeCall& call : record.calls)
            order.push_back(call.name);
        record.calls.clear();
        order.push_back("front of " + std::to_string(process));
    };
    ComApplication femap(new RecordingObject(record, &application, library::interfaces[0]), nullptr,
                         connection, Reading::OneByOne);
    femap.feFileOpen(false, panelModel());
    const auto endsWith = [&](const char* dialog) {
        ASSERT_THAT(record.calls, testing::SizeIs(1));
        EXPECT_EQ(record.calls[0].name, dialog);
        EXPECT_EQ(order.back(), "front of " + std::to_string(GetCurrentProcessId()));
        order.clear();
        record.calls.clear();
    };
    const std::unique_ptr<femap::EntitySet> set = femap.feSet();

    server.selections.queue("1");
    set->Select(femap::EntityType::Node, true, "Nodes");
    endsWith("Select");
    server.selections.queue("cancel");
    set->SelectMultiID(femap::EntityType::LoadDefinition, 1, "Loads");
    endsWith("SelectMultiIDV2");
    server.selections.queue("1");
    femap.feFunction()->SelectID("Function");
    endsWith("SelectID");
}

TEST(DialogsOfFemap, AreShownAlsoWhereItDoesNotComeToTheFront)
{
    const femap::com::Connection connection(std::make_shared<femap::com::RetryPolicy>());
    constexpr DWORD noProcess = 0xFFFFFFF0;

    EXPECT_NO_THROW(connection.letToFront(noProcess));
    EXPECT_NO_THROW(connection.letToFront(0));
}

// Every name in the adapter that FEMAP has is among what was recorded.
TEST(AdapterNames, AreAllLookedUpInOneGenerationOrTheOther)
{
    const femap::com::Apartment apartment;
    Record record;
    for (const bool isClassic : {true, false}) {
        RecordedFemap recorded(record, isClassic);
        readPanel(recorded);
        selectInForm(recorded, Reading::InBulk);
        readBeyond(record, isClassic);
    }
    const auto isDeclared = [](const std::string& name) {
        return std::ranges::any_of(library::interfaces, [&](const library::Interface& one) {
            return library::find(one.members, name) != nullptr;
        });
    };
    const auto isRecorded = [&](const std::string& name) {
        return std::ranges::any_of(record.names, [&](const AskedName& asked) {
            return femap::isSameName(asked.name, name);
        });
    };

    std::set<std::string> missed;
    std::size_t seen = 0;
    const std::regex literal("\"(\\w+)\"");
    for (const auto& file : std::filesystem::directory_iterator(SOURCE_FOLDER "/femap/com")) {
        if (!file.is_regular_file())
            continue;
        std::ifstream in(file.path());
        const std::string text{std::istreambuf_iterator<char>(in), {}};
        for (std::sregex_iterator match(text.begin(), text.end(), literal), end; match != end;
             ++match) {
            const std::string name = (*match)[1];
            if (!isDeclared(name))
                continue;
            ++seen;
            if (!isRecorded(name))
                missed.insert(name);
        }
    }

    EXPECT_GT(seen, 100U);
    EXPECT_THAT(missed, testing::IsEmpty());
}

}  // namespace comtest
