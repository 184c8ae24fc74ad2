// The body of the entry on the "Note" page: rich ink with its commands, stamps and view settings.
#pragma once

#include <string>

#include "data/dbj_item.h"
#include "ui/rich_ink.h"

class NoteBody : public RichInk {
public:
    // Creates the control, hidden, as a child of `parent` at `place` (device pixels). False when it cannot be made.
    bool CreateIn(HWND parent, int id, const RECT& place);

    // Shows the field's bytes; bytes that are no rich text show as nothing. Not a change. A field that the control has
    // shown or stored last is there already, unless the text was changed since: a long text is not loaded twice.
    void Load(const DbJItem& body);
    // Gives the field the contents, as bytes and as plain text; an empty body clears both. False, and the field keeps
    // what it had, when the control cannot give its contents.
    bool Store(DbJItem& body);
    bool IsEmpty() const { return GetTextLength() == 0; }

    // Reads the view mode and the zoom that the settings hold ("iView", "iZoom") and applies both. A setting that the
    // registry refuses is told to the user, as any is.
    void ApplySettings();
    // Applies the zoom alone, and tells nothing: the user may never look at the note.
    void PrepareZoom();
    // Sets and remembers them.
    void ChangeZoom(int percent);
    void ChangeView(UINT view);
    // What ApplySettings has read. A view that is none of the two counts as the typing view.
    int StoredZoom() const { return zoom_; }
    UINT StoredView() const { return view_; }

    // Runs a command of the "Edit" menu (IDM_UNDO ... IDM_SELECT_ALL) where it can do something. False for any other
    // id.
    bool RunCommand(int command);
    // Whether the command can do something now.
    bool CanRun(int command) const;

    // Puts "<stamp> - " on a new line at the end, or in place of the selection when the body is empty.
    void InsertStamp(const std::wstring& stamp);

private:
    void ApplyZoom();

    const DbJItem* shown_ = nullptr;  // the field whose bytes the control holds
    int zoom_ = 100;
    UINT view_ = VT_TYPINGVIEW;
};

// The zoom commands, in menu order, and their percentages.
constexpr int kZoomPercents[] = {75, 100, 150, 200, 300};
// The zoom menu's item to check for a percentage: 0 (75%) for whatever is not in the menu.
int ZoomItem(int percent);

// The user's time of day without seconds, and the date and time, as the stamps write them.
std::wstring TimeStamp();
std::wstring DateTimeStamp();
