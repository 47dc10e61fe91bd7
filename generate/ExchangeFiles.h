// The six exchange files, through which the optimisation tool and the model exchange parameters:
// for each grid a description, the values, and a template of the values.
#pragma once

#include "form/Progress.h"
#include "generate/LinePieces.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace generate
{

struct SolverFormat;

/// The three files of one grid.
struct ExchangeFormat
{
    std::string_view description;     // what each parameter is in the model
    std::string_view values;          // names and values
    std::string_view valuesTemplate;  // from which the optimiser writes new values
    std::string_view head;            // of the description, with slots
    LinePieces (*parameterLine)(const ParameterRow& row);  // of the description
    /// Reads such a line back as a row of the grid, without its value; none: it is no such line.
    std::optional<std::string> (*rowOfLine)(std::string_view line);
};

/// Lines of CAEInput.txt and CAEOutput.txt.
LinePieces inputParameterLine(const ParameterRow& row);
LinePieces outputResponseLine(const ParameterRow& row);
/// The rows that these lines were made of, their cells joined by TAB. A name may hold blanks.
std::optional<std::string> inputRowOfLine(std::string_view line);
std::optional<std::string> outputRowOfLine(std::string_view line);
/// A line of InputValues.txt and OutputValues.txt, and of their templates.
LinePieces nameValueLine(const ParameterRow& row);
LinePieces templateLine(const ParameterRow& row);

extern const ExchangeFormat inputExchange;
extern const ExchangeFormat outputExchange;

/// The name that a line of a template is for; empty when the line is for none.
std::string_view nameInTemplate(std::string_view line);

/// The model's file as the first line of both descriptions names it: with the extension of the
/// start argument, or else that of the file.
std::string referenceModel(const form::MainForm& form, const std::string& modelFile);
/// The file that the first line of a description names; empty when it names none.
std::string_view namedReference(std::string_view description);

/// The head of a description for the chosen solver; each line ends in a line feed.
std::string exchangeHead(const form::Context& context, const ExchangeFormat& format,
                         const std::string& modelName);

/// What the head of a description tells.
struct ExchangeHead
{
    std::string_view model;                // the model's file
    const SolverFormat* solver = nullptr;  // null: the head names none
    std::string_view solverFile;           // the deck or the results; empty: the head names none
    std::string_view values;               // the file of names and values
    std::size_t lines = 0;                 // of the head, as far as they are as they should be
    bool isWhole = false;
};

/// Reads what exchangeHead writes, from lines without their ends, which must outlive the result.
ExchangeHead readExchangeHead(std::span<const std::string> lines, const ExchangeFormat& format);

void WriteExchangeFiles(form::Context& context, form::Progress& progress, const std::string& folder,
                        const std::string& name);

}  // namespace generate
