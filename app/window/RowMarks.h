// The marks of rows: small pictures at the left of the name, in the colour of Windows' text, so
// that every theme shows them. A row has one mark.
#pragma once

#include "app/window/Pixels.h"

#include <windows.h>

#include <commctrl.h>
#include <functional>

namespace window
{

/// In order of rank: of several the last one is shown.
enum class Mark
{
    None,
    NotApplied,  // a ring
    New,         // a disc
    Warning,     // a triangle
    Error,       // a cross
};

/// Which rows have a mark. It is asked only for rows that are drawn.
struct MarkRule
{
    Mark mark = Mark::None;
    std::function<bool(int row)> isOn;
};

/// The pictures, one for each mark, as a list view wants them.
class MarkPictures
{
public:
    explicit MarkPictures(Pixels pixels);
    ~MarkPictures() { ImageList_Destroy(images_); }
    MarkPictures(const MarkPictures&) = delete;
    MarkPictures& operator=(const MarkPictures&) = delete;

    HIMAGELIST handle() const { return images_; }

private:
    HIMAGELIST images_;
};

}  // namespace window
