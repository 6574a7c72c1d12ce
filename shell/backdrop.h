#pragma once

// The picture beside the login: the hotel's front at night, with its name. It has no logic.

#include <QString>
#include <QWidget>

namespace hotel {

class Backdrop : public QWidget {
public:
    explicit Backdrop(const QString& hotelName, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString hotelName_;
};

} // namespace hotel
