#include "loop/Input.h"

#include "generate/ExchangeFiles.h"
#include "loop/ChangedModel.h"
#include "loop/Deck.h"
#include "loop/Inputs.h"
#include "loop/StudyFiles.h"
#include "loop/WholeFile.h"
#include "system/RuntimeError.h"

#include <optional>
#include <utility>

namespace loop
{

using sys::RuntimeError;

namespace
{

constexpr std::string_view programName = "CAEInput";
constexpr std::string_view checkFlag = "--check";
constexpr std::string_view noDeckFlag = "--no-deck";
constexpr std::string_view backFlag = "--back";
constexpr std::string_view ownFlags[] = {checkFlag, noDeckFlag, backFlag};

constexpr std::string_view usage =
    R"text(usage: CAEInput [--femap=running|embedded] [--folder DIR] [--check] [--no-deck] [--locked]
       CAEInput [--femap=running|embedded] [--folder DIR] --back [--locked]
       CAEInput --help

Puts the values of InputValues.txt and FunctionsInputvalues.txt into the model that CAEInput.txt
names, and writes the deck for the solver.

  --femap=running   work with FEMAP, which has the model open or is started (Windows)
  --femap=embedded  work with the model host of the program itself: MODEL.neu is read, and
                    MODEL.run.neu written
  --folder DIR      the folder of the study; else the working folder
  --check           tell every problem and change nothing
  --no-deck         write no deck
  --back            put back what a run left that was ended by force, and nothing else
  --locked          the caller keeps the folder for this program

Exit code 0: done. 1: not done; the reasons are on standard error. 2: wrong arguments.
)text";

/// One run, from what it reads to what it leaves.
class InputRun
{
public:
    InputRun(const Call& call, const Environment& environment)
        : call_(call), environment_(environment), system_(environment.system)
    {}

    int run()
    {
        const std::unique_ptr<sys::FolderLock> lock = lockFolder(call_, system_);
        if (call_.has(backFlag))
            return putBackAlone();
        readFiles();
        sys::PendingError noModel;
        if (!description_.model.empty() && !noModel.attempt([&] { lookIntoModel(); }))
            problems_.add({}, 0, std::string(programName) + ": " + noModel.description());
        if (!problems_.empty()) {
            environment_.errors << problems_.text();
            return exitNotDone;
        }
        if (call_.has(checkFlag)) {
            environment_.output << description_.model << ": no problem found, nothing changed\n";
            return exitDone;
        }
        changeModel();
        tellDone();
        return exitDone;
    }

private:
    bool writesDeck() const { return !call_.has(noDeckFlag); }

    void readFiles()
    {
        description_ = readDescription(system_, call_.folder, generate::inputExchange, problems_);
        if (description_.valuesFile.empty())
            return;
        values_ = readValues(system_, description_, problems_);
        functions_ = readFunctions(system_, description_, problems_);
        remark(functions_.remark);
    }

    void openSession()
    {
        Connection connection = connect(call_, environment_);
        modelFile_ = connection.isEmbedded() ? neutralFile(description_) : description_.model;
        session_.emplace(system_, std::move(connection), description_.pathOf(modelFile_));
        journal_ = description_.pathOf(formerFile(description_.name()));
    }

    int putBackAlone()
    {
        // What is wrong with rows is nothing to this.
        description_ = readDescription(system_, call_.folder, generate::inputExchange, problems_);
        if (description_.model.empty()) {
            environment_.errors << problems_.text();
            return exitNotDone;
        }
        openSession();
        const std::string told = putBackFormer(*session_, journal_);
        environment_.output << description_.model << ": "
                            << (told.empty() ? "there is nothing to put back" : told) << '\n';
        return exitDone;
    }

    // What the file of values holds is not what this run is to put any more when it came back, too.
    void putBackFirst()
    {
        if (!system_.files.fileExists(journal_))
            return;
        const std::string values = description_.pathOf(description_.valuesFile);
        const std::string before = system_.files.read(values);
        remark(putBackFormer(*session_, journal_));
        if (system_.files.read(values) != before)
            problems_.add(description_.valuesFile, 0,
                          "the file holds again what it held before that run; write the values "
                          "that are to be put, and start again");
    }

    void lookIntoModel()
    {
        openSession();
        if (call_.has(checkFlag) && system_.files.fileExists(journal_))
            remark(
                "An earlier run was ended before its time; its values are in the model until "
                "the next run without --check");
        else if (!call_.isLocked)
            putBackFirst();
        inputs_ = inputsInModel(session_->context(), description_, values_, functions_, problems_);
        deck_.emplace(*session_, description_);
        if (writesDeck())
            deck_->demandPossible(problems_);
        if (session_->connection().isEmbedded())
            patchFile();
    }

    // The text of the model's file with the values in it.
    void patchFile()
    {
        const std::string path = description_.pathOf(modelFile_);
        const std::string text = system_.files.read(path);
        const std::vector<UnfitValue> unfit = session_->connection().patch(
            text, path, inputs_.wanted, [&](std::string_view piece) { patched_ += piece; });
        for (const UnfitValue& each : unfit)
            problems_.add(modelFile_, each.line, each.what);
    }

    void changeModel()
    {
        Former former;
        former.model = description_.model;
        former.values = inputs_.former;
        ChangedModel model(*session_, journal_, std::move(former), call_.isLocked);
        for (const std::string& file : resultsOf(description_, session_->connection()))
            system_.files.remove(description_.pathOf(file));
        model.begin();
        try {
            model.orPutBack([&] {
                model.put(inputs_.wanted);
                if (writesDeck())
                    model.withoutDialogs([&] { deck_->write(); });
                if (session_->connection().isEmbedded())
                    writeRunFile();
                if (writesDeck())
                    deck_->keep();
                model.done();
            });
        }
        catch (const RuntimeError&) {
            deck_->withdraw();
            removeRunFile();
            throw;
        }
    }

    void writeRunFile()
    {
        WholeFile file(system_, description_.pathOf(runFile(description_)));
        file.write(patched_);
        file.close();
    }
    // With the model host the values are in that file alone.
    void removeRunFile()
    {
        sys::PendingError ignored;  // what ended the run is told
        if (session_->connection().isEmbedded())
            ignored.attempt(
                [&] { system_.files.remove(description_.pathOf(runFile(description_))); });
    }

    void remark(const std::string& text)
    {
        if (!text.empty())
            environment_.errors << programName << ": " << text << '\n';
    }

    void tellDone()
    {
        const std::size_t numbers = inputs_.wanted.entities.size() + inputs_.wanted.loads.size();
        const std::size_t functions = inputs_.wanted.functions.size();
        std::ostream& output = environment_.output;
        output << description_.model << ": " << numbers << (numbers == 1 ? " value" : " values");
        if (functions != 0)
            output << " and " << functions << (functions == 1 ? " function" : " functions");
        output << (numbers + functions == 1 ? " is in " : " are in ")
               << (session_->connection().isEmbedded() ? runFile(description_) : "the model");
        if (writesDeck())
            output << ", " << description_.solverFile << " is written";
        output << '\n';
    }

    const Call& call_;
    const Environment& environment_;
    sys::System& system_;
    Problems problems_;
    Description description_;
    std::vector<GivenValue> values_;
    GivenFunctions functions_;
    std::optional<Session> session_;
    std::string modelFile_;  // as the FEMAP of the run opens it
    std::string journal_;
    Inputs inputs_;
    std::optional<Deck> deck_;
    std::string patched_;
};

}  // namespace

int runInput(const std::vector<std::string>& arguments, const Environment& environment)
{
    return runProgram({programName, usage, ownFlags}, arguments, environment,
                      [&](const Call& call) { return InputRun(call, environment).run(); });
}

}  // namespace loop
