#include "generate/TaskDescription.h"

#include "generate/BatchFile.h"
#include "generate/ExchangeFiles.h"
#include "generate/FunctionDataFile.h"
#include "generate/ModelPath.h"
#include "generate/Targets.h"
#include "logging/Module1.h"

#include <algorithm>
#include <string_view>

namespace generate
{

using form::Context;
using form::ParameterGrid;
using logging::logDebug;

namespace
{

constexpr std::string_view head = R"text(
MDOLVersion: 9.0
CompilerOptions: warn

Task Task1

    TaskHeader Task1
        Version: 1.0
        Evaluation: single
        ControlMode: user
        RunCounter: 1
        BoundsPolicy: adjustvalue
        CheckPoint: unknown
    End TaskHeader Task1

    Inputs Task1
)text";

constexpr std::string_view betweenInputsAndOutputs = R"text(
    End Inputs Task1

    Outputs Task1
)text";

constexpr std::string_view simulationCodes = R"text(
    End Outputs Task1

    SimCode CAEInput
        InputFiles CAEInput
            FileDescription InputValuestxt
                FileType: fastparse
                TemplateFile: "InputValues.txt.template"
                InputFile: "InputValues.txt"
            End FileDescription InputValuestxt
        End InputFiles CAEInput

        SimCodeProcess CAEInput
            Program: "CAEInput.exe"
            ProcessType: transient
            Environment: unrestored
            ElapseTime: 5m
            Prologue
                WriteInputSpecs: InputValuestxt
        End SimCodeProcess CAEInput

    End SimCode CAEInput

    SimCode Nastran

        SimCodeProcess Nastran
            ScriptLanguage: DOSBatch
            Script
                del @model@.@results@
                del @model@.Log
                del @model@.rsf
                copy "@settings@" nastran.ini
                @command line@
            End Script
            ProcessType: transient
            Environment: unrestored
            ReturnCodes: 0
                         1
            ElapseTime: 5m
            Execution: "$Program"
        End SimCodeProcess Nastran

    End SimCode Nastran

    SimCode CAEOutput
        OutputFiles CAEOutput
            FileDescription OutputValuestxt
                FileType: fastparse
                TemplateFile: "OutputValues.txt.template"
                OutputFile: "OutputValues.txt"
            End FileDescription OutputValuestxt
        End OutputFiles CAEOutput

        SimCodeProcess CAEOutput
            Program: "CAEOutput"
            ProcessType: transient
            Environment: unrestored
            ElapseTime: 5m
            Epilogue
                ReadOutputSpecs: OutputValuestxt
        End SimCodeProcess CAEOutput

    End SimCode CAEOutput

    TaskProcess Task1
        Control: [
            CAEInput
            Nastran
            CAEOutput
        ]
    End TaskProcess Task1

)text";

constexpr std::string_view optimisation = R"text(
    Optimization Task1
        PotentialVariables:
            @input@
        Variables:
            @property input@
        VariableScaling
            Parameter: @property input@ ScaleFactor: 1.0
        InputConstraints
            Parameter: @property input@ LowerBound: 0.01 UpperBound: 5.0
        PotentialObjectives:
            @output@
        OutputConstraints
            Parameter: @element output@ LowerBound: -5000.0 Weight: 1.0 ScaleFactor: 1.0 UpperBound: 5000.0 Weight: 1.0 ScaleFactor: 1.0

        OptimizePlan StressRatio
            DefaultUpperBound: 1.0E15
            UseScaling: yes
            OptimizeStep Step1
                Technique: "Stress Ratio Optimizer"
                Prologue
                    RestoreBestSolution: no
                    RerunTask: no
                Epilogue
                    RestoreBestSolution: yes
                    RerunTask: no
                Options
                    Simulations: 100
                    Matching: sequentially
            Control: [
                Step1
            ]

        # PLAN TO BE CONFIGURED BY ADVISOR:
        OptimizePlan PriorityRankedPlan
            Control: [
            ]
    End Optimization Task1

)text";

constexpr std::string_view planAndStorage = R"text(
    TaskPlan Task1
        StopTaskPlanOnError: no
        Control: [
            PriorityRankedPlan
        ]
    End TaskPlan Task1

    DataStorage Task1
        Restore: no
        DataLog: "Task1.db" Mode: overwrite
        DataLookUp: "Task1.db"
        MatchMode: Exact
        Levels: all
        StoreGradRuns: yes
        StoreApproxRuns: yes
    End DataStorage Task1

End Task Task1
)text";

constexpr FixedBounds bounds = {wordBehind(optimisation, "@property input@ LowerBound:"),
                                wordBehind(optimisation, "LowerBound: 0.01 UpperBound:")};
static_assert(simulationCodes.find(settingsFile) != std::string_view::npos);

constexpr bool isDeleted(std::string_view ending)
{
    constexpr std::string_view deletion = "del @model@.";
    std::size_t at = simulationCodes.find(deletion);
    while (at != std::string_view::npos &&
           !simulationCodes.substr(at + deletion.size()).starts_with(ending))
        at = simulationCodes.find(deletion, at + 1);
    return at != std::string_view::npos;
}
static_assert(std::ranges::all_of(leftBySolver, isDeleted) && isDeleted("@results@"));
static_assert(std::ranges::all_of(codesOfSolver, [](int code) {
    const char text[] = {' ', static_cast<char>('0' + code), '\n'};
    return simulationCodes.find(std::string_view(text, sizeof text)) != std::string_view::npos;
}));

LinePieces inputLine(const ParameterRow& row)
{
    return {"        Parameter: ", row.name(), " Type: real InitialValue: ", row.value()};
}

LinePieces outputLine(const ParameterRow& row)
{
    return {"        Parameter: ", row.name(), " Type: real"};
}

bool isAny(const ParameterRow& /*row*/)
{
    return true;
}

bool isFunction(const ParameterRow& row)
{
    return row.cell(form::inputColumn::kind) == form::functionKind;
}

// The names of those rows of a grid that belong in a list.
Lines names(form::Progress& progress, const ParameterGrid& grid,
            bool (*belongs)(const ParameterRow&))
{
    return Lines([&progress, &grid, belongs](const LineSink& add) {
        forEachNamedRow(progress, grid, [&](const ParameterRow& row) {
            if (belongs(row))
                add(row.name());
        });
    });
}

// As the log lists the exchange files; the templates are named although "Velmar" gets none.
std::string pathsOf(const ExchangeFormat& format, const std::string& folder)
{
    return concatenated({folder, format.description, " ", folder, format.values, " ", folder,
                         format.valuesTemplate, " "});
}

}  // namespace

bool isVaried(const ParameterRow& row)
{
    return row.cell(form::inputColumn::kind) == form::propertyKind;
}

FixedBounds boundsOfVariables()
{
    return bounds;
}

bool isConstrained(const ParameterRow& row)
{
    return row.name().starts_with(constrainedNameStart);
}

std::string copiedSettings(const SolverFormat& solver)
{
    if (solver.engineFolder.empty())
        return {};
    return concatenated({R"(C:\Program Files\)", solver.engineFolder, R"(\)", settingsFile});
}

void WriteDescFile(Context& context, form::Progress& progress)
{
    logDebug(context.log, "At start of WriteDescFile");
    const ModelPath model = openModelPath(context);
    const auto& [folder, name] = model;
    const auto open = [&](Target target) { return openTarget(context, model, target); };

    TextFile caeInput = open(inputDescription);
    TextFile inputNamesAndValues = open(inputValues);
    TextFile task = open(taskFile);
    const std::string inputPaths = pathsOf(inputExchange, folder);
    logDebug(context.log, "Opened files ", inputPaths, targetPath(model, taskFile), " For writing");
    caeInput.write(exchangeHead(context, inputExchange, name));
    WriteDescFileHead(context, task);
    WriteBatchFile(context, progress, folder, name);
    forEachNamedRow(progress, context.grids->InputsList, [&](const ParameterRow& row) {
        if (isFunction(row))
            return;
        caeInput.line(inputParameterLine(row));
        inputNamesAndValues.line(nameValueLine(row));
        task.line(inputLine(row));
    });
    WriteFunctionInputs(context, progress);
    task.write(fillIn(betweenInputsAndOutputs, {}));
    finish(progress, inputNamesAndValues);
    finish(progress, caeInput);
    logDebug(context.log, "Closed files ", inputPaths);

    TextFile caeOutput = open(outputDescription);
    TextFile outputNamesAndValues = open(outputValues);
    const std::string outputPaths = pathsOf(outputExchange, folder);
    logDebug(context.log, "Opened files ", outputPaths, " For writing");
    caeOutput.write(exchangeHead(context, outputExchange, name));
    forEachNamedRow(progress, context.grids->OutputsList, [&](const ParameterRow& row) {
        caeOutput.line(outputResponseLine(row));
        outputNamesAndValues.line(nameValueLine(row));
        task.line(outputLine(row));
    });
    WriteDescFileTail(context, progress, task, name);
    finish(progress, outputNamesAndValues);
    finish(progress, caeOutput);
    logDebug(context.log, "Closed files ", outputPaths, " ");
    logDebug(context.log, "At end of  write desc file");  // sic
}

void WriteDescFileHead(Context& context, TextFile& file)
{
    logDebug(context.log, "Before writing head of Desc file");
    file.write(fillIn(head, {}));
    logDebug(context.log, "After writing head of Desc file");
}

void WriteDescFileTail(Context& context, form::Progress& progress, TextFile& file,
                       const std::string& name)
{
    logDebug(context.log, "Before writing tail of Desc file");
    const SolverFormat* const solver = findSolverFormat(context.form.Solver.Text);
    const std::string settings = solver == nullptr ? "" : copiedSettings(*solver);
    file.write(
        fillIn(simulationCodes, {{"model", {name}},
                                 {"results", solver == nullptr ? Lines{} : Lines{solver->results}},
                                 {"settings", settings.empty() ? Lines{} : Lines{settings}},
                                 {"command line", {context.form.CommandLine.Text}}}));
    WriteDescFileOptimize(context, progress, file);
    file.write(fillIn(planAndStorage, {}));
    finish(progress, file);
    logDebug(context.log, "After writing head of Desc file");  // sic
}

void WriteDescFileOptimize(Context& context, form::Progress& progress, TextFile& file)
{
    logDebug(context.log, "Before writing optimize of Desc file");
    fillIn(optimisation,
           {{"input", names(progress, context.grids->InputsList, isAny)},
            {"property input", names(progress, context.grids->InputsList, isVaried)},
            {"output", names(progress, context.grids->OutputsList, isAny)},
            {"element output", names(progress, context.grids->OutputsList, isConstrained)}},
           [&](std::string_view line) { file.line(line); });
    logDebug(context.log, "After writing optimize of Desc file");
}

}  // namespace generate
