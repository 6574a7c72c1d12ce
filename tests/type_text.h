#pragma once

#include <QApplication>
#include <QKeyEvent>

// Types a text key by key. QTest::keyClicks knows no Chinese.
inline void TypeText(QWidget* widget, const QString& text) {
    for (const QChar character : text) {
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, character);
        QApplication::sendEvent(widget, &key);
    }
}
