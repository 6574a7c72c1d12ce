#pragma once

// A screen as the house has them: an entry panel, a list, commands. The tests drive it.

#include <QEventLoop>
#include <functional>

#include "screen/field_form.h"
#include "screen/grid_view.h"
#include "screen/screen.h"

namespace hotel {

class ExampleScreen : public Screen {
    Q_OBJECT

public:
    ExampleScreen();

    FieldForm* form;
    GridView* guests;

    // What WaitCmd does: waits in an event loop (as a message does) or lets events through itself (as
    // the link does) until endWait().
    enum class Wait { InEventLoop, LettingEventsThrough };
    Wait wait = Wait::InEventLoop;
    void endWait();

    // Presses WaitCmd and takes the steps while its handler waits.
    void pressWaitCmd(const std::function<void()>& steps);

    QStringList ran; // names of the commands that have run
    bool mayClose = true;
    int ticks = 0;

protected:
    bool closing() override;

private:
    void WaitCmd_Click();

    QEventLoop loop_;
    bool waiting_ = false;
};

} // namespace hotel
