#include "app/tour/tour.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "record/literals.h"
#include "screen/category_box.h"
#include "screen/open_screen.h"
#include "screen/picture.h"
#include "shell/mainfrm.h"

namespace hotel {

namespace {

constexpr int kPatienceMilliseconds = 10000;
constexpr int kLookMilliseconds = 50;

template<class Widget>
Widget* Find(QWidget& window, const QString& name) {
    auto* widget = window.findChild<Widget*>(name);
    if (!widget)
        throw TourFailure(window.objectName() + u" 没有控件 "_s + name);
    return widget;
}

} // namespace

Tour::Tour(QApplication& application, const QString& configuration, const QString& pictureFolder)
    : application_(application), configuration_(configuration), folder_(pictureFolder) {
    QDir().mkpath(folder_);
}

void Tour::start() {
    workstation_.reset();
    workstation_ = std::make_unique<Workstation>(application_, configuration_);
    workstation_->start();
    auto* users = Find<QComboBox>(login(), u"usercmb"_s);
    waitFor([users] { return users->count() > 0; }, u"用户清单没有读出"_s);
}

void Tour::logIn(const QString& user, const QString& password) {
    start();
    type(login(), u"usercmb"_s, user);
    type(login(), u"Password"_s, password);
    press(login(), u"Logincmd"_s);
    waitFor([this] { return login().mainWindow() != nullptr; }, user + u" 没有登录"_s);
}

void Tour::leave() {
    QTimer::singleShot(0, &login(), [this] { press(mainWindow(), u"exit_cmd"_s); });
    QApplication::exec(); // until the exit has ended the program
    expect(login().mainWindow() == nullptr, u"主窗口没有关闭"_s);
    workstation_.reset();
}

void Tour::press(QWidget& window, const QString& button) {
    auto* widget = Find<QPushButton>(window, button);
    // Many commands are enabled by a screen's timer, a moment after what allows them.
    waitFor([widget] { return widget->isEnabled(); }, button + u" 不能使用"_s);
    widget->click();
}

void Tour::type(QWidget& window, const QString& field, const QString& text) {
    auto* widget = Find<QWidget>(window, field);
    widget->setFocus();
    if (auto* box = qobject_cast<QComboBox*>(widget); box && box->lineEdit())
        box->lineEdit()->selectAll();
    for (QChar character : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
        QApplication::sendEvent(widget, &press);
    }
    QApplication::processEvents();
}

void Tour::choose(QWidget& window, const QString& box, const QString& entry) {
    auto* widget = Find<QComboBox>(window, box);
    if (auto* category = qobject_cast<CategoryBox*>(widget))
        category->fill();
    const int index = widget->findText(entry);
    expect(index >= 0, box + u" 没有 "_s + entry);
    widget->setCurrentIndex(index);
    Q_EMIT widget->activated(index);
}

void Tour::picture(QWidget& window, const QString& name) {
    QApplication::processEvents();
    const QString number = QString::number(++pictures_).rightJustified(2, u'0');
    const QString path = folder_ + u'/' + number + u'-' + name + u".png"_s;
    expect(SavePicture(&window, path), u"不能写图片 "_s + path);
}

void Tour::key(QWidget& window, Qt::Key key) {
    QWidget* widget = window.focusWidget() ? window.focusWidget() : &window;
    QTest::keyClick(widget, key);
}

void Tour::printToPdf(Screen& preview, const QString& name) {
    answering(u"PrtSet"_s, [this](Screen& settings) { press(settings, u"Command1"_s); });
    const QString path = folder_ + u'/' + name + u".pdf"_s;
    messages_.answerNext(path);
    press(preview, u"PrintCmd"_s);
    expect(QFileInfo(path).size() > 0, name + u" 没有打印"_s);
}

Screen& Tour::opened(const QString& name) {
    Screen* screen = FindScreen(name);
    expect(screen && screen->isVisible(), name + u" 没有打开"_s);
    return *screen;
}

void Tour::answering(const QString& name, const std::function<void(Screen&)>& answer) {
    auto* timer = new QTimer(&workstation_->login());
    QObject::connect(timer, &QTimer::timeout, timer, [timer, name, answer] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* screen = qobject_cast<Screen*>(window);
            if (screen && screen->isVisible() && screen->objectName() == name) {
                timer->stop();
                timer->deleteLater();
                answer(*screen);
                return;
            }
        }
    });
    timer->start(kLookMilliseconds);
}

void Tour::waitFor(const std::function<bool()>& condition, const QString& words) {
    expect(QTest::qWaitFor(condition, kPatienceMilliseconds), words);
}

void Tour::expect(bool condition, const QString& words) {
    if (!condition)
        throw TourFailure(words + (messages_.last().isEmpty()
                                       ? QString()
                                       : u"（"_s + messages_.last() + u"）"_s));
}

} // namespace hotel
