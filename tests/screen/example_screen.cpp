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
    guests->table().setHeaders({u"序号"_s, u"房间号"_s, u"客人姓名"_s, u"性别"_s, u"证件号码"_s,
                                u"入住日期"_s, u"确认房价"_s, u"房态"_s, u"特殊说明"_s});
    guests->setNumberColumn(0);
    guests->setSortable(true);
    guests->setColumnAlignment(0, Qt::AlignRight);
    guests->setColumnAlignment(6, Qt::AlignRight);

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

void ExampleScreen::fillGuests(int rows) {
    static const QStringList kNames = {u"王建国"_s, u"李红梅"_s, u"欧阳慧"_s, u"赵钱"_s,
                                       u"阿依古丽·买买提"_s};
    static const QStringList kStates = {u"散客"_s, u"包房"_s, u"团队"_s, u"长包"_s};
    for (int i = 1; i <= rows; ++i) {
        guests->table().addRow({QString::number(i), QString::number(8100 + (i * 37) % 900),
                                kNames[i % 5], i % 3 ? u"男"_s : u"女"_s,
                                u"51010219%1"_s.arg(6001011234 + i),
                                u"2006-03-%1"_s.arg(i % 28 + 1, 2, 10, QChar(u'0')),
                                QString::number(80 + (i * 53) % 700) + u".00"_s, kStates[i % 4],
                                i % 7 ? QString() : u"加床一张，早餐送到房间"_s});
    }
    guests->refresh();
    guests->autoFit();
}

} // namespace hotel
