#pragma once

#include <QObject>

class TestMainMenu : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void nightAuditGate_data();
    void nightAuditGate();
    void controlsAreUnique();
    void entryWithoutScreenSaysSo();
};
