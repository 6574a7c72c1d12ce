#pragma once

// A row of command buttons that breaks into more rows where the window is narrow.

#include <QPushButton>
#include <QWidget>

namespace hotel {

// A button that shows its key behind its caption.
class CommandButton : public QPushButton {
    Q_OBJECT

public:
    CommandButton(const QString& caption, const QKeySequence& key, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont keyFont() const;

    QString keyText_;
};

class CommandBar : public QWidget {
    Q_OBJECT

public:
    explicit CommandBar(QWidget* parent = nullptr);

    // Adds a button behind the others, with a gap ahead of it where another group begins.
    void addButton(QPushButton* button, const QString& group);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Place {
        QPushButton* button;
        bool gap; // a group begins here
    };
    // Height that the buttons take in this width; with `move`, places them.
    int arrange(int width, bool move) const;

    QList<Place> places_;
    QString lastGroup_;
};

} // namespace hotel
