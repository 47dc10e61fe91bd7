// What of the machine decides whether a program can reach FEMAP: Windows, rights, session, code
// pages, the processes of FEMAP.
#pragma once

#include "probe/Session.h"

namespace probe
{

/// A line for each fact; notes FEMAP's processes in the session.
void probeMachine(Session& session);

/// The processes of FEMAP: by the names of their programs.
std::set<DWORD> femapProcesses();

}  // namespace probe
