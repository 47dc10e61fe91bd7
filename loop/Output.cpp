#include "loop/Output.h"

#include "generate/Targets.h"
#include "loop/ChangedModel.h"
#include "loop/ImportedResults.h"
#include "loop/Inputs.h"
#include "loop/OutputFiles.h"
#include "loop/OutputRows.h"
#include "loop/PresentValues.h"
#include "loop/StudyFiles.h"

#include <exception>
#include <utility>

namespace loop
{

namespace
{

constexpr std::string_view outputProgram = "CAEOutput";

constexpr std::string_view outputUsage =
    R"text(usage: CAEOutput [--femap=running|embedded] [--folder DIR] [--locked]
       CAEOutput --help

Reads the outputs that CAEOutput.txt names from the results of the solver's run and from the mass
of the model, and writes them into OutputValues.txt. An older file of that name goes first.

  --femap=running   work with FEMAP, which has the model open or is started (Windows)
  --femap=embedded  work with the model host of the program itself: MODEL.run.neu and
                    MODEL.results.neu are read
  --folder DIR      the folder of the study; else the working folder
  --locked          the caller keeps the folder for this program

Exit code 0: done. 1: not done; the reasons are on standard error, and there is no OutputValues.txt.
2: wrong arguments.
)text";

/// One run, from the old values that it removes to the new ones.
class OutputRun
{
public:
    OutputRun(const Call& call, const Environment& environment)
        : call_(call), environment_(environment), system_(environment.system)
    {}

    int run()
    {
        // Before anything can fail, the lock as well: who looks at no exit code must find no file.
        system_.files.remove(call_.folder + std::string(generate::outputValues));
        const std::unique_ptr<sys::FolderLock> lock = lockFolder(call_, system_);
        outputs_ = readDescription(system_, call_.folder, generate::outputExchange, problems_);
        if (problems_.empty())
            system_.files.remove(outputs_.pathOf(outputs_.valuesFile));
        try {
            lookIntoModel();
        }
        catch (const std::exception&) {
            environment_.errors << problems_.text();
            throw;
        }
        environment_.errors << problems_.text();
        return problems_.empty() ? exitDone : exitNotDone;
    }

private:
    void lookIntoModel()
    {
        if (!problems_.empty())
            return;
        Connection connection = connect(call_, environment_);
        const std::string results =
            connection.isEmbedded() ? neutralResults(outputs_) : outputs_.solverFile;
        if (wantsResults(outputs_))
            demandResults(results, connection.isEmbedded());
        if (!problems_.empty())
            return;
        const std::string model = connection.isEmbedded() ? runFile(outputs_) : outputs_.model;
        Session session(system_, std::move(connection), outputs_.pathOf(model));
        readIn(session, results);
        remark(session.context().form.StatusLine.Caption);
        if (!problems_.empty())
            return;
        writeOutputValues(session.context(), outputs_.pathOf(outputs_.valuesFile));
        tellDone();
    }

    void demandResults(const std::string& results, bool isEmbedded)
    {
        if (outputs_.solver == nullptr) {
            problems_.add(outputs_.file, 2,
                          "no results are named; choose a solver in the form and press \"Apply\" "
                          "again");
            return;
        }
        const std::string deck = generate::deckName(*outputs_.solver, outputs_.name());
        std::vector<std::string> madeOf;
        if (isEmbedded)
            madeOf.push_back(runFile(outputs_));
        // What solves for the model host may do without a deck.
        if (!isEmbedded || system_.files.fileExists(outputs_.pathOf(deck)))
            madeOf.push_back(deck);
        demandFreshResults(system_, outputs_.folder, results, madeOf, problems_);
    }

    void readIn(Session& session, const std::string& results)
    {
        const std::string journal = outputs_.pathOf(formerFile(outputs_.name()));
        if (!call_.isLocked)
            remark(putBackFormer(session, journal));
        const Inputs lacking = lackingInputs(session);
        if (!problems_.empty())
            return;
        Former former;
        former.model = outputs_.model;
        former.values = lacking.former;
        ChangedModel model(session, journal, std::move(former), call_.isLocked);
        model.begin();
        model.orPutBack([&] {
            model.put(lacking.wanted);
            model.withoutDialogs([&] {
                readOutputs(session.context(), outputs_, fullPath(outputs_.pathOf(results)),
                            problems_);
            });
            model.done();
        });
    }

    // The values of the run, where the mass is measured with FEMAP and it does not hold them:
    // another one had them. The model host reads them in the model of the run.
    Inputs lackingInputs(Session& session)
    {
        if (!wantsMass(outputs_) || session.connection().isEmbedded())
            return {};
        const Description inputs =
            readDescription(system_, call_.folder, generate::inputExchange, problems_);
        if (inputs.valuesFile.empty())
            return {};
        const std::vector<GivenValue> values = readValues(system_, inputs, problems_);
        const GivenFunctions functions = readFunctions(system_, inputs, problems_);
        remark(functions.remark);
        Inputs found = inputsInModel(session.context(), inputs, values, functions, problems_);
        if (firstDifference(found.wanted, found.former).empty())
            return {};
        remark("The model did not hold the values of " + inputs.valuesFile +
               "; they are put into it again");
        return found;
    }

    void remark(const std::string& text)
    {
        if (!text.empty())
            environment_.errors << outputProgram << ": " << text << '\n';
    }

    void tellDone()
    {
        const std::size_t count = outputs_.rows.size();
        environment_.output << outputs_.model << ": " << count
                            << (count == 1 ? " value is in " : " values are in ")
                            << outputs_.valuesFile << '\n';
    }

    const Call& call_;
    const Environment& environment_;
    sys::System& system_;
    Problems problems_;
    Description outputs_;
};

}  // namespace

int runOutput(const std::vector<std::string>& arguments, const Environment& environment)
{
    return runProgram({outputProgram, outputUsage, {}}, arguments, environment,
                      [&](const Call& call) { return OutputRun(call, environment).run(); });
}

void readOutputs(form::Context& context, const Description& outputs, const std::string& results,
                 Problems& problems)
{
    takeOutputs(context, outputs);
    if (wantsResults(outputs))
        withImportedResults(context, {outputs.solver->brand, results, outputs.solverFile}, problems,
                            [&] { readResultRows(context, outputs, problems); });
    sys::PendingError refused;
    if (wantsMass(outputs) && !refused.attempt([&] { readMassRows(context, outputs, problems); }))
        problems.add(outputs.file, 0, refused.description());
}

}  // namespace loop
