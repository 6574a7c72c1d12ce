#pragma once

#include <QObject>

class TestConfiguration : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void parsed_data();
    void parsed();
    void missingOrUnreadableFileGivesDefaults();
    void fileInTheCodePageIsRead();
    void wholeCommandLineIsThePath();
};
