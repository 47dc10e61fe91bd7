#pragma once

#include "femap/neutral/Model.h"

#include <string>
#include <string_view>

// Makes the text of small neutral files and reads them.
namespace neutral
{

/// A block: its two marks, its number, and the records as given, each with its line end.
std::string block(int number, const std::string& records);
std::string header(const std::string& version = "9.3");

/// The seven lines of an element of four nodes.
std::string quad(int id, const std::string& nodes);
/// A flat material with the given reals in front, in the layout of block 601.
std::string material(int id, const std::string& title, const std::string& reals,
                     int attachedFunctions = 0);
/// ID, title and the nineteen lines of options of a load set.
std::string loadSetHead(const std::string& head, const std::string& title);
/// The seven lines of a load on the mesh; the first two and the third as given.
std::string meshLoad(const std::string& head, const std::string& face, const std::string& values);
std::string geometryLoad(const std::string& head, const std::string& values);
/// The record behind a list.
inline const std::string listEnd = "-1,-1,-1,0.,0.,-1,1,\n";
/// What stands before the values of a vector in block 451.
std::string vectorHead(int setID, int id, const std::string& title,
                       const std::string& extremes = "0.,0.,0.,", int entityType = 7);

/// One of each kind.
std::string completeFile();

femap::neutral::Model read(const std::string& text);
void readInto(femap::neutral::Model& model, const std::string& text);
/// What the reader says about a text that does not fit; empty when it fits.
std::string errorOf(const std::string& text);
/// The same with the model's name, the line and the cure, which are alike in all of them.
std::string error(int line, const std::string& problem);

int lineCount(std::string_view text);

}  // namespace neutral
