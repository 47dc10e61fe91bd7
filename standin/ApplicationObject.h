// "femap.model" itself; there is one for as long as the server runs.
#pragma once

#include "femap/Application.h"
#include "standin/MainWindow.h"
#include "standin/Object.h"

#include <memory>
#include <string>

namespace standin
{

class ApplicationObject : public ObjectOf<ApplicationObject>
{
public:
    explicit ApplicationObject(Server& server);

    static constexpr std::span<const library::Member> declarations = library::Imodel;
    static std::span<const Member<ApplicationObject>> members();

    /// End the server when its last client has gone.
    void endWithLastClient() { endsWithLastClient_ = true; }
    ULONG STDMETHODCALLTYPE Release() override;

    Variant mainWindow();
    std::string modelName();
    double version();
    int activeID(EntityType type);
    int countOf(EntityType type);
    int nextIDOf(EntityType type);
    int visible(bool show);
    int fileOpen(bool useDialog, const std::string& path);
    int isFileModified();
    int allModels(Arguments& arguments);
    int lock();
    int unlock();
    int message(int colour, const std::string& text);
    int statusShow(bool enable, int maximum);
    int statusUpdate(int current);
    int registerAddInPane(Arguments& arguments);
    int measure(Arguments& arguments);
    int convertToNew(int id);
    int convertToOld(int id);
    int fileWriteNastran(int brand, const std::string& path);
    int fileReadNastranResults(int brand, const std::string& path);
    /// Of the kind, those that a set holds.
    int deleteOfKind(EntityType type, int set);
    int deleteAll(bool geometry, bool mesh, bool output, bool confirmed);
    /// Vectors, those that a set holds.
    int deleteOutput(int outputSet, int set);
    void putActiveID(Arguments& arguments);

    // Whether FEMAP's own dialogs, or its message boxes, stay away.
    int dialogAutoSkip = 0;
    int dialogAutoSkipMsg = 0;
    int dialogAutoAnswer = 0;

protected:
    bool returnsColumns() const override { return false; }
    void unreferenced() override {}

private:
    int codeOf(ReturnCode code) const;

    std::unique_ptr<femap::Application> femap_;  // the model host's
    MainWindow window_;
    bool endsWithLastClient_ = false;
};

}  // namespace standin
