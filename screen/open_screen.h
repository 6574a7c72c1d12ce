#pragma once

// Screens by name. A subsystem that opens another one's screen asks for it by name and doesn't know
// who that is; app/ ties the names to the screens.
//
//     RegisterScreen(u"FyxxFrm", [] { return new FyxxFrm; });
//     OpenScreen(u"FyxxFrm", folio);

#include <QPointer>
#include <QString>
#include <QVariant>
#include <functional>
#include <utility>

namespace hotel {

class Screen;

enum class Instances {
    One,  // a screen that stands already is brought forward and loaded again
    Many, // every opening makes a new window
};

void RegisterScreen(QStringView name, std::function<Screen*()> factory,
                    Instances instances = Instances::One);

// Shows the screen and has it load the argument (Screen::load; what it means is told in the header
// of the screen). False when no screen is registered under the name, when the screen that stands is
// busy with a handler (it is brought forward, and the argument is not taken), or when loading has
// closed it.
bool OpenScreen(QStringView name, const QVariant& argument = {});

// Shows a screen that its caller has made, a list of results for instance, as OpenScreen shows those
// that it makes: it is destroyed when it is closed. Its load() is not called.
void ShowScreen(Screen* screen);

// The open screen of that name, or null.
Screen* FindScreen(QStringView name);

// Asks all open screens to close; false when one of them stays.
bool CloseAllScreens();

// Shows `form` in front of `parent`, which takes no input meanwhile, and waits with the event loop
// running until it is closed. True when it closed by accept() and still stands; false also when the
// parent was destroyed and took the form along. The form is hidden, not destroyed.
bool ShowModal(Screen* form, QWidget* parent);

// A screen used as a question: query form, payment.
//
//     ModalScreen<QrtfFrm> payment(this, folio); // this: the asking screen
//     if (!payment.show()) return;
//     post(payment->received());
template<class Form>
class ModalScreen {
public:
    // `arguments` go to the form's constructor.
    template<class... Arguments>
    explicit ModalScreen(QWidget* parent, Arguments&&... arguments)
        : parent_(parent), form_(new Form(std::forward<Arguments>(arguments)...)) {}
    ~ModalScreen() { delete form_; }
    ModalScreen(const ModalScreen&) = delete;
    ModalScreen& operator=(const ModalScreen&) = delete;

    bool show() { return form_ && ShowModal(form_, parent_); }
    Form* operator->() const { return form_; }
    Form* get() const { return form_; }

private:
    QPointer<QWidget> parent_;
    QPointer<Form> form_;
};

} // namespace hotel
