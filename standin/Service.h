// Offers an application to COM in FEMAP's place.
#pragma once

namespace standin
{

class ApplicationObject;
class Server;

struct Offer
{
    bool wasStartedByCOM = false;  // then it ends with its last client
    bool isFound = true;           // by those who attach
    unsigned foundAfter = 0;       // milliseconds
};

/// Serves until it is told to quit; prints "ready" when calls may come.
void serve(Server& server, ApplicationObject& application, const Offer& offer);

}  // namespace standin
