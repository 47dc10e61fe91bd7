// What every program without a window does first.
#pragma once

namespace sys
{

/// Signals, standard streams and libraries as such a program needs them; its temporary files go
/// with it when it is told to end. Must be called before anything else.
void prepareProgram();

}  // namespace sys
