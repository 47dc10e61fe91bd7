// What nobody could tell of FEMAP without one: a line for each question, and how to get its answer.
#pragma once

#include <string_view>

namespace probe
{

/// Their numbers are those under which the answers are known elsewhere; they stay.
enum class Question
{
    OldNames = 1,
    VectorsOfAddAll,
    ValueWithoutData,
    ModelNameWithoutModel,
    BeyondTheEnd,
    PlacesOfLoads,
    DialogWhileLocked,
    EventMessage,
    TypeOfModelIDs,
    SignOfInertia,
    PlacesOfProperties,
    EndOfOwnFemap,
    TypesOfArguments,
};

struct QuestionText
{
    Question question;
    std::string_view text;
    std::string_view howToAnswer;  // shown where this run had no answer
};

// clang-format off
inline constexpr QuestionText questionTexts[] = {
    {Question::OldNames,
        "Does a FEMAP since 2020.1 still answer feOutput, SelectMultiID and feDeleteOutput, and does it warn?",
        "run it with FEMAP 2020.1 or later"},
    {Question::VectorsOfAddAll,
        "Which vectors does AddAll(29) add, and what is setID of a fresh feOutput?",
        "open a model with results"},
    {Question::ValueWithoutData,
        "Value of an entity without data: an error or 0?",
        "open a model whose results lack some entities, such as stresses of plates beside bars"},
    {Question::ModelNameWithoutModel,
        "ModelName with no model open: an error, empty or else?",
        "close all models and run it again"},
    {Question::BeyondTheEnd,
        "orient(11), and pval beyond the end: an error or 0?",
        "open a model with elements and properties"},
    {Question::PlacesOfLoads,
        "Which place of load is which for convection and radiation, and what ends NextLoad?",
        "open a model with load definitions of these kinds"},
    {Question::DialogWhileLocked,
        "Does a selection dialog work while FEMAP is locked?",
        "run it with --ask"},
    {Question::EventMessage,
        "Is the event message posted or sent, and what does lParam hold for events 2, 3 and 4?",
        "run it with --events 60, and open and close models meanwhile"},
    {Question::TypeOfModelIDs,
        "Which type have the elements of the model IDs of feAppGetAllModels?",
        "open a model"},
    {Question::SignOfInertia,
        "Sign of the products of inertia; what is measured for an empty set?",
        "open a model with mass whose centre lies off the axes"},
    {Question::PlacesOfProperties,
        "Rod: places 0, 4, 5, 8 of pval; plate: places 1 to 3?",
        "open a model with rods and plates"},
    {Question::EndOfOwnFemap,
        "Does a FEMAP that the tool started end when the tool lets go of it?",
        "close FEMAP and run it again: it starts one then"},
    {Question::TypesOfArguments,
        "Does FEMAP take an R8 as an index, and a variant by reference for typed variables?",
        "open a model with properties"},
};
// clang-format on

}  // namespace probe
