#pragma once

#include <array>
#include <string>

#include "form/controls.h"

namespace quorlin {

struct ControlState {
    std::string text;  // text fields, and the captions that change (the readout labels)
    bool selected = false;  // options
    int value = 0;          // check boxes: 0 or 1
    bool enabled = true;
    bool visible = true;
};

// Told about every change of the window's state so that a front end can redraw.
class FormObserver {
public:
    virtual ~FormObserver() = default;
    virtual void controlChanged(Ctl) {}
    virtual void gridChanged() {}
    virtual void pictureBoxChanged() {}
};

// Raised when a control's value changes, by the user or by the program.
class ReactionSink {
public:
    virtual ~ReactionSink() = default;
    virtual void optionSelected(Ctl option) = 0;
    virtual void checkClicked(Ctl checkBox) = 0;
    virtual void textChanged(Ctl field) = 0;
};

// The controls of the main window with their state. Line breaks in texts are CR LF,
// as the window's multi-line text box holds them.
class EntryForm {
public:
    EntryForm();

    const ControlState& operator[](Ctl c) const { return controls_[indexOf(c)]; }
    const std::string& text(Ctl c) const { return (*this)[c].text; }
    bool selected(Ctl c) const { return (*this)[c].selected; }
    int value(Ctl c) const { return (*this)[c].value; }
    bool enabled(Ctl c) const { return (*this)[c].enabled; }
    bool visible(Ctl c) const { return (*this)[c].visible; }
    // The value of the field's text: the number it begins with, 0 for none.
    double valueOf(Ctl field) const;

    // Changes that raise the control's reaction, exactly as when the user makes them.
    // Selecting deselects the rest of the option's group; the reaction runs only when
    // the option becomes selected.
    void selectOption(Ctl option);
    // Clears an option without selecting another of its group (a loaded file may say so).
    void deselectOption(Ctl option);
    // Runs the check box's click reaction when the value changes.
    void setCheck(Ctl checkBox, int value);
    // Runs the field's change reaction when the text changes.
    void setText(Ctl field, std::string text);

    // Changes without a reaction.
    void setEnabled(Ctl c, bool enabled);
    void setVisible(Ctl c, bool visible);
    void setCaption(Ctl label, std::string caption);

    void setObserver(FormObserver* observer) { observer_ = observer; }
    void setReactions(ReactionSink* reactions) { reactions_ = reactions; }

private:
    ControlState& at(Ctl c) { return controls_[indexOf(c)]; }
    void changed(Ctl c) {
        if (observer_) observer_->controlChanged(c);
    }

    std::array<ControlState, kControlCount> controls_;
    FormObserver* observer_ = nullptr;
    ReactionSink* reactions_ = nullptr;
};

}  // namespace quorlin
