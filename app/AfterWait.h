// What follows when the engineer has ended the wait for a busy FEMAP: the status line tells what is
// left there, and that is undone as soon as FEMAP answers.
#pragma once

#include "app/Session.h"

namespace app
{

/// Tells on the status line why nobody waits for FEMAP, and what happens when it answers.
void tellEndedWait(Session& session);

/// FEMAP answers again: releases its locks, ends its progress bar and takes over what could not be.
void settleEndedWait(Session& session);

}  // namespace app
