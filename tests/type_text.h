#pragma once

// What a user does to a control.

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QTest>

// Types a text key by key. QTest::keyClicks knows no Chinese.
inline void TypeText(QWidget* widget, const QString& text) {
    for (const QChar character : text) {
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, character);
        QApplication::sendEvent(widget, &key);
    }
}

// Chooses an entry of a list.
inline void Choose(QComboBox* list, const QString& entry) {
    list->setCurrentText(entry);
    Q_EMIT list->activated(list->currentIndex());
}

// Shows a window so that keys reach it.
inline void ShowActive(QWidget* window) {
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
}
