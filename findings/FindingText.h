// Findings as text: a line for each, or JSON.
#pragma once

#include "findings/Finding.h"

namespace findings
{

/// Its rows, counted from 1: "inputs:3-5,9 outputs:2"; empty where it belongs to none.
std::string rowsOf(const Finding& finding);

/// "warning outside-bounds inputs:3-5,9: Sentence Cure: …", with the name behind the rows where
/// there is one.
std::string lineOf(const Finding& finding);

/// One as an object of JSON.
std::string jsonOf(const Finding& finding);
/// All of them and their count as one line of JSON.
std::string jsonOf(std::span<const Finding> found);

}  // namespace findings
