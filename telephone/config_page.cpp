#include "telephone/config_page.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include "record/literals.h"
#include "record/record_text.h"
#include "telephone/billing_files.h"

namespace hotel {

ConfigPage::ConfigPage(QWidget* parent)
    : QWidget(parent), TeldbLj(new QLineEdit(kBillingFolder.toString())),
      ConfigList(new QListWidget), ConfigItem(new QLineEdit) {
    TeldbLj->setObjectName(u"TeldbLj"_s);
    ConfigList->setObjectName(u"ConfigList"_s);
    ConfigList->setTextElideMode(Qt::ElideRight);
    ConfigList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    ConfigItem->setObjectName(u"ConfigItem"_s);
    ConfigItem->setPlaceholderText(u"参数=值，例如 AUTOCHECK=1800"_s);
    auto* boxes = new QFormLayout;
    boxes->addRow(u"参数"_s, ConfigItem);
    boxes->addRow(u"服务器话单目录"_s, TeldbLj);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(u"计费参数"_s));
    layout->addWidget(ConfigList, 1);
    layout->addLayout(boxes);
}

QString ConfigPage::folder() const {
    return TrimWhite(TeldbLj->text());
}

void ConfigPage::show(const AccountingConfig& config) {
    ConfigList->clear();
    const QStringList lines = config.lines();
    ConfigList->addItems(lines.isEmpty() ? QStringList(QString()) : lines);
}

void ConfigPage::setCommands(QWidget* commands) {
    layout()->addWidget(commands);
}

} // namespace hotel
