#include "AppFixture.h"
#include "app/SecondForm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace app
{
namespace
{

using testing::ElementsAre;

// A machine on which other forms have marked some models.
class MarkedModels : public SessionFixture
{
public:
    MarkedModels()
    {
        session.markModel = [this](const std::string& path) {
            return std::make_unique<Mark>(*this, path);
        };
        session.context.application = connector.attach();
    }

    ~MarkedModels() { session.modelMark.reset(); }  // it looks into this
    MarkedModels(const MarkedModels&) = delete;
    MarkedModels& operator=(const MarkedModels&) = delete;

    std::set<std::string> ofOthers;
    std::vector<std::string> own;

    /// A procedure ends with this model open.
    void runWith(std::optional<std::string> model)
    {
        dispatcher.run("procedure", [&] { form.openModel = std::move(model); });
    }

private:
    struct Mark : sys::ModelMark
    {
        Mark(MarkedModels& all, const std::string& path) : models(all), name(path)
        {
            models.own.push_back(name);
        }
        ~Mark() override { std::erase(models.own, name); }
        bool isSecond() const override { return models.ofOthers.contains(name); }

        MarkedModels& models;
        std::string name;
    };

    EventDispatcher dispatcher{session};
};

}  // namespace

TEST(SecondForm, IsToldOnceAboveAllElse)
{
    MarkedModels f;
    f.ofOthers = {"/models/beam.neu"};
    f.form.status.tellResult("FEMAP is back");

    f.runWith("/models/beam.neu");
    EXPECT_EQ(f.form.StatusLine.Caption, std::string(secondForm) + ". FEMAP is back");
    f.form.status.clear();
    f.runWith("/models/beam.neu");

    EXPECT_EQ(f.form.StatusLine.Caption, "");
    EXPECT_THAT(f.own, ElementsAre("/models/beam.neu"));
}

TEST(SecondForm, IsToldOfAModelThatIsOpenedOrNamedLater)
{
    MarkedModels f;
    f.ofOthers = {"/models/beam.neu"};

    f.runWith("/models/other.neu");
    EXPECT_EQ(f.form.StatusLine.Caption, "");
    f.runWith("");
    EXPECT_THAT(f.own, testing::IsEmpty());
    f.runWith("/models/beam.neu");

    EXPECT_EQ(f.form.StatusLine.Caption, secondForm);
    EXPECT_THAT(f.own, ElementsAre("/models/beam.neu"));
    f.runWith("/models/other.neu");
    EXPECT_EQ(f.form.StatusLine.Caption, "");
    f.runWith(std::nullopt);
    EXPECT_THAT(f.own, testing::IsEmpty());
}

TEST(SecondForm, IsToldAtTheEndOfAProcedureThatFailed)
{
    MarkedModels f;
    f.ofOthers = {"/models/beam.neu"};
    f.form.openModel = "/models/beam.neu";
    EventDispatcher dispatcher(f.session);

    dispatcher.run("procedure",
                   [] { throw sys::RuntimeError(sys::ErrorNumber::InvalidCall, "it failed"); });

    EXPECT_EQ(f.form.StatusLine.Caption, std::string(secondForm) + ". it failed");
}

TEST(SecondForm, IsNoneWhereThereIsNoWindow)
{
    struct Windowless : fake::FakeFormHost
    {
        std::intptr_t windowHandle() override { return 0; }
    };
    AppFixture f;
    Windowless host;
    Session session(f.connector, host, f.lists, f.system);
    session.markModel = [](const std::string&) -> std::unique_ptr<sys::ModelMark> {
        ADD_FAILURE() << "it was marked";
        return nullptr;
    };
    session.form.openModel = "/models/beam.neu";

    lookForSecondForm(session);

    EXPECT_EQ(session.form.StatusLine.Caption, "");
}

}  // namespace app
