#include "frontoffice/status_places.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGridLayout>
#include <QKeySequence>
#include <QPainter>
#include <QShortcut>

#include "record/literals.h"
#include "record/numbers.h"
#include "screen/status_colour.h"

namespace hotel {

namespace {

constexpr int kColumns = 2;
constexpr int kRows = kStatusPlaces / kColumns;
constexpr double kWordScale = 1.35; // a status is read from where the map is read

constexpr std::array<Qt::Key, kStatusPlaces> kKeys = {
    Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5,     Qt::Key_6,
    Qt::Key_7, Qt::Key_8, Qt::Key_9, Qt::Key_0, Qt::Key_Minus, Qt::Key_Equal};

QString PlaceName(QStringView control, int index) {
    return control + FormatNumber(index + 1, u"00");
}

} // namespace

// A plain coloured area that can be clicked. It leaves the focus where it is: on the room.
class ColourButton : public QAbstractButton {
public:
    explicit ColourButton(const QString& name) {
        setObjectName(name);
        setFocusPolicy(Qt::NoFocus);
        setCursor(Qt::PointingHandCursor);
        setAttribute(Qt::WA_Hover);
    }

    void setColour(const QColor& colour) {
        colour_ = colour;
        update();
    }

    QSize sizeHint() const override {
        return {fontMetrics().horizontalAdvance(text()) + 16, fontMetrics().height() + 8};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), isDown() ? colour_.darker(115) : colour_);
        painter.setPen(ReadableOn(colour_));
        painter.drawText(rect(), Qt::AlignCenter, text());
        if (underMouse())
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

private:
    QColor colour_ = Qt::white;
};

StatusPlacePanel::StatusPlacePanel(QWidget* parent) : QWidget(parent) {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    for (int i = 0; i < kStatusPlaces; ++i) {
        places_[size_t(i)] = makePlace(i);
        layout->addWidget(places_[size_t(i)].row, i % kRows, i / kRows);
    }
}

StatusPlacePanel::Place StatusPlacePanel::makePlace(int index) {
    const QKeySequence key(Qt::ALT | kKeys[size_t(index)]);
    Place place{new ColourButton(PlaceName(u"Fttl", index)),
                new ColourButton(PlaceName(u"Ftlb", index)), new QCheckBox, new QWidget};
    place.Ftxz->setObjectName(PlaceName(u"Ftxz", index));
    place.Ftxz->setChecked(true);
    place.Fttl->setText(key.toString(QKeySequence::NativeText));
    QFont word = font();
    word.setPointSizeF(word.pointSizeF() * kWordScale);
    word.setBold(true);
    place.Ftlb->setFont(word);

    auto* layout = new QHBoxLayout(place.row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(place.Ftxz);
    layout->addSpacing(4);
    layout->addWidget(place.Fttl);
    layout->addWidget(place.Ftlb, 1);
    for (ColourButton* button : {place.Fttl, place.Ftlb}) {
        button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
        connect(button, &QAbstractButton::clicked, this, [this, index] { Q_EMIT chosen(index); });
    }
    auto* shortcut = new QShortcut(key, place.Fttl);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QShortcut::activated, place.Fttl, &QAbstractButton::click);
    connect(place.Ftxz, &QCheckBox::clicked, this, &StatusPlacePanel::ticked);
    return place;
}

void StatusPlacePanel::setPlaces(const StatusPlaces& places) {
    for (size_t i = 0; i < places.size(); ++i) {
        const QColor colour = StatusColour(places[i].colour);
        places_[i].Fttl->setColour(colour);
        places_[i].Ftlb->setColour(colour);
        places_[i].Ftlb->setText(places[i].word);
        places_[i].row->setHidden(places[i].word.isEmpty());
    }
}

QList<bool> StatusPlacePanel::ticks() const {
    QList<bool> ticks;
    for (const Place& place : places_)
        ticks.append(place.Ftxz->isChecked());
    return ticks;
}

void StatusPlacePanel::setTicks(const QList<bool>& ticks) {
    for (size_t i = 0; i < places_.size(); ++i)
        places_[i].Ftxz->setChecked(ticks.value(qsizetype(i), true));
}

} // namespace hotel
