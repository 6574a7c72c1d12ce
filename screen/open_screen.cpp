#include "screen/open_screen.h"

#include <QApplication>
#include <QEventLoop>
#include <QHash>
#include <QList>
#include <QScreen>
#include <QStyle>

#include "screen/screen.h"

namespace hotel {

namespace {

struct Registration {
    std::function<Screen*()> factory;
    Instances instances = Instances::One;
};

QHash<QString, Registration> registry;
QList<Screen*> openScreens; // those that stand

// Keeps the window inside the display, in the middle.
void PlaceOnDisplay(Screen* screen) {
    const int title = screen->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect display = screen->screen()->availableGeometry().adjusted(0, title, 0, 0);
    screen->resize(screen->size().boundedTo(display.size()));
    screen->move(display.center() - screen->rect().center());
}

// From here on the screen is one of those that are open.
void TakeIn(Screen* screen) {
    screen->setAttribute(Qt::WA_DeleteOnClose);
    openScreens.append(screen);
    QObject::connect(screen, &Screen::closed, [screen] { openScreens.removeOne(screen); });
    QObject::connect(screen, &QObject::destroyed, [screen] { openScreens.removeOne(screen); });
    screen->ensurePolished();
    if (!screen->testAttribute(Qt::WA_Resized))
        screen->adjustSize();
    PlaceOnDisplay(screen);
}

Screen* Create(const QString& name, const Registration& registration) {
    Screen* screen = registration.factory();
    Q_ASSERT_X(screen->objectName() == name, "OpenScreen", "a screen under another one's name");
    TakeIn(screen);
    return screen;
}

void BringForward(Screen* screen) {
    screen->setWindowState(screen->windowState() & ~Qt::WindowMinimized);
    screen->show();
    screen->raise();
    screen->activateWindow();
}

} // namespace

void RegisterScreen(QStringView name, std::function<Screen*()> factory, Instances instances) {
    registry.insert(name.toString(), {std::move(factory), instances});
}

bool OpenScreen(QStringView name, const QVariant& argument) {
    const auto registration = registry.constFind(name.toString());
    if (registration == registry.constEnd())
        return false;
    QPointer<Screen> screen =
        registration->instances == Instances::One ? FindScreen(name) : nullptr;
    if (!screen)
        screen = Create(registration.key(), *registration);
    BringForward(screen);
    const bool loaded = screen->run([&] { screen->load(argument); });
    return loaded && screen && screen->isVisible();
}

void ShowScreen(Screen* screen) {
    TakeIn(screen);
    BringForward(screen);
}

Screen* FindScreen(QStringView name) {
    for (Screen* screen : openScreens) {
        if (screen->objectName() == name)
            return screen;
    }
    return nullptr;
}

bool CloseAllScreens() {
    const QList<QPointer<Screen>> screens(openScreens.begin(), openScreens.end());
    for (const QPointer<Screen>& screen : screens) {
        if (screen)
            screen->close();
    }
    return openScreens.isEmpty();
}

bool ShowModal(Screen* form, QWidget* parent) {
    const QPointer<Screen> shown = form;
    const QPointer<QWidget> asking = parent ? parent->window() : nullptr;
    form->setParent(asking, Qt::Dialog);
    form->setWindowModality(parent ? Qt::WindowModal : Qt::ApplicationModal);

    QEventLoop loop;
    QObject::connect(form, &Screen::closed, &loop, &QEventLoop::quit);
    QObject::connect(form, &QObject::destroyed, &loop, &QEventLoop::quit);
    form->show();
    form->activateWindow();
    form->run([form] { form->load({}); });
    if (shown && shown->isVisible())
        loop.exec();
    if (asking)
        asking->activateWindow();
    return shown && shown->accepted();
}

} // namespace hotel
