#include "example_screen.h"

#include <QPushButton>
#include <QScopeGuard>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/events.h"
#include "record/literals.h"

namespace hotel {

namespace {

const QList<FormField> kFields = {
    {u"房间号", u"Fh", u"房间号", Editor::ReadOnly, {}, 8},
    {u"客人姓名", u"Krxm", u"客人姓名", Editor::Text, {}, 16, 20},
    {u"性别", u"Krxb", u"性别", Editor::Category, u"性别", 6},
    {u"证件种类", u"Zjzl", u"证件种类", Editor::Category, u"证件名称"},
    {u"证件号码", u"Zjhm", u"证件号码", Editor::Text, {}, 20},
    {u"年龄", u"Krnl", u"年龄", Editor::Number, {}, 6, 3},
    {u"入住日期", u"Rzrq", u"入住日期", Editor::Date},
    {u"入住时间", u"Rzsj", u"入住时间", Editor::ShortTime},
    {u"确认房价", u"Qrfj", u"确认房价", Editor::Amount},
    {u"自何处来", u"Zhcl", u"自何处来", Editor::CategoryText, u"省市名称"},
    {u"付费客人", u"Ffkr", u"结账付费客人", Editor::Check},
    {u"特殊说明", u"Tssm", u"特殊说明", Editor::MultiLine},
};

} // namespace

ExampleScreen::ExampleScreen()
    : Screen(u"ExampleScreen"_s, u"住客信息"_s), form(new FieldForm(kFields, 3)),
      guests(new GridView(u"KrxxQd"_s)) {
    guests->table().setHeaders({u"序号"_s, u"客人姓名"_s});

    auto* content = new QVBoxLayout;
    content->addWidget(form);
    content->addWidget(guests, 1);
    setContent(content);

    const auto note = [this](const QString& name) { return [this, name] { ran += name; }; };
    addCommands({
        {u"LastC"_s, u"上一位"_s, note(u"LastC"_s), Qt::Key_F7},
        {u"NextC"_s, u"下一位"_s, note(u"NextC"_s), Qt::Key_F8},
        {u"WaitCmd"_s, u"读取清单"_s, [this] { WaitCmd_Click(); }, Qt::Key_F5, CommandKind::Plain,
         u"list"_s},
        {u"CmdStop"_s, u"停止"_s, note(u"CmdStop"_s), Qt::Key_F6, CommandKind::Stop, u"list"_s},
        {u"DyCmd"_s, u"打印住房单"_s, note(u"DyCmd"_s), Qt::Key_F9, CommandKind::Plain, u"list"_s},
        {u"QrCmd"_s, u"确认登记完成"_s, note(u"QrCmd"_s), Qt::Key_F10, CommandKind::Default,
         u"end"_s},
        {u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
         u"end"_s},
    });
    on(form, &FieldForm::edited, [this](const QString& control) { ran += control; });
    every(10, [this] { ++ticks; });
    resize(1180, 760);
}

void ExampleScreen::WaitCmd_Click() {
    ran += u"WaitCmd"_s;
    waiting_ = true;
    if (wait == Wait::InEventLoop)
        loop_.exec();
    while (waiting_)
        LetEventsThrough(QEventLoop::WaitForMoreEvents);
    ran += u"WaitCmd ended"_s;
}

void ExampleScreen::endWait() {
    waiting_ = false;
    loop_.quit();
}

void ExampleScreen::pressWaitCmd(const std::function<void()>& steps) {
    QTimer::singleShot(0, this, [this, steps] {
        const auto end = qScopeGuard([this] { endWait(); });
        steps();
    });
    command(u"WaitCmd")->click();
}

bool ExampleScreen::closing() {
    ran += u"closing"_s;
    return mayClose;
}

} // namespace hotel
