#include "screen/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>
#include <QTranslator>

#include "record/literals.h"

namespace hotel {

namespace {

constexpr double kTextPoints = 11;
constexpr int kRadius = 3;

constexpr QRgb kAccent = 0xFF1B5E9E;
constexpr QRgb kFrame = 0xFF8A96A3;
constexpr QRgb kDisabledText = 0xFF66717C;

// The toolkit's plain style with a focus that can be seen from across the desk and a default button
// that can't be mistaken.
class DeskStyle : public QProxyStyle {
public:
    DeskStyle() : QProxyStyle(u"fusion"_s) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        switch (element) {
        case PE_PanelLineEdit:
            if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
                frame && frame->lineWidth > 0)
                drawBox(option, painter, boxColour(option));
            return;
        case PE_FrameLineEdit:
            return;
        case PE_PanelButtonCommand:
            drawButton(option, painter);
            return;
        case PE_Frame:
            drawBox(option, painter, {});
            return;
        case PE_FrameFocusRect:
            drawRing(option->rect, option, painter);
            return;
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
            element == CE_PushButtonLabel && button && IsFilled(button)) {
            QStyleOptionButton white = *button;
            white.palette.setColor(QPalette::ButtonText,
                                   option->palette.color(QPalette::HighlightedText));
            QProxyStyle::drawControl(element, &white, painter, widget);
            return;
        }
        if (element == CE_ShapedFrame && option->state & State_HasFocus &&
            qobject_cast<const QAbstractScrollArea*>(widget)) {
            drawBox(option, painter, {});
            return;
        }
        QProxyStyle::drawControl(element, option, painter, widget);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override {
        if (control != CC_ComboBox) {
            QProxyStyle::drawComplexControl(control, option, painter, widget);
            return;
        }
        drawBox(option, painter, boxColour(option));
        QStyleOption arrow = *option;
        arrow.rect = subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget);
        arrow.rect = QRect({}, QSize(12, 12)).translated(arrow.rect.center() - QPoint(6, 6));
        drawPrimitive(PE_IndicatorArrowDown, &arrow, painter, widget);
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        switch (metric) {
        case PM_DefaultFrameWidth:
            return 2;
        case PM_ButtonDefaultIndicator:
        case PM_ButtonShiftHorizontal:
        case PM_ButtonShiftVertical:
            return 0;
        case PM_FocusFrameHMargin: // at both sides of a cell's text
        case PM_HeaderMargin:
            return 5;
        case PM_LayoutHorizontalSpacing:
            return 10;
        case PM_LayoutVerticalSpacing:
            return 8;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override {
        QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        const int height = option->fontMetrics.height();
        if (type == CT_LineEdit || type == CT_ComboBox)
            size.setHeight(height + 12);
        else if (type == CT_PushButton)
            size.setHeight(height + 14);
        return size;
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        if (hint == SH_ComboBox_Popup) // a list below the box, not a menu over it
            return 0;
        if (hint == SH_ComboBox_ListMouseTracking)
            return 1;
        return QProxyStyle::styleHint(hint, option, widget, result);
    }

    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override {
        switch (icon) {
        case SP_MessageBoxInformation:
            return SignIcon(u'i', kAccent);
        case SP_MessageBoxQuestion:
            return SignIcon(u'?', kAccent);
        default:
            return QProxyStyle::standardIcon(icon, option, widget);
        }
    }

private:
    // The default button is filled with the accent.
    static bool IsFilled(const QStyleOptionButton* button) {
        return button && button->features & QStyleOptionButton::DefaultButton &&
               button->state & State_Enabled;
    }

    // A white sign on a disc, for the message boxes.
    static QIcon SignIcon(QChar sign, QRgb colour) {
        QPixmap pixmap(64, 64);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(colour));
        painter.drawEllipse(2, 2, 60, 60);
        QFont font = QApplication::font();
        font.setPixelSize(44);
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(pixmap.rect(), Qt::AlignCenter, sign);
        return pixmap;
    }

    static QColor boxColour(const QStyleOption* option) {
        const bool readOnly = option->state & State_ReadOnly || !(option->state & State_Enabled);
        return option->palette.color(readOnly ? QPalette::Window : QPalette::Base);
    }

    static void drawBox(const QStyleOption* option, QPainter* painter, const QColor& fill) {
        const bool focus = option->state & State_HasFocus && option->state & State_Enabled;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(QColor(focus ? kAccent : kFrame), focus ? 2 : 1));
        painter->setBrush(fill.isValid() ? QBrush(fill) : Qt::NoBrush);
        const double inset = focus ? 1 : 0.5;
        painter->drawRoundedRect(QRectF(option->rect).adjusted(inset, inset, -inset, -inset),
                                 kRadius, kRadius);
        painter->restore();
    }

    static void drawRing(const QRect& around, const QStyleOption* option, QPainter* painter) {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(option->palette.color(QPalette::Highlight), 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(around).adjusted(1, 1, -1, -1), kRadius, kRadius);
        painter->restore();
    }

    static void drawButton(const QStyleOption* option, QPainter* painter) {
        const bool enabled = option->state & State_Enabled;
        const bool isDefault = IsFilled(qstyleoption_cast<const QStyleOptionButton*>(option));
        QColor fill = option->palette.color(isDefault ? QPalette::Highlight : QPalette::Button);
        if (option->state & (State_Sunken | State_On))
            fill = fill.darker(112);
        else if (enabled && option->state & State_MouseOver)
            fill = isDefault ? fill.lighter(112) : fill.lighter(104);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(isDefault ? fill.darker(120) : QColor(kFrame), 1));
        painter->setBrush(fill);
        painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), kRadius,
                                 kRadius);
        if (enabled && option->state & State_HasFocus) {
            // On the filled button the ring stands inside, in white.
            const double inset = isDefault ? 3 : 1;
            painter->setPen(QPen(isDefault ? QColor(Qt::white) : QColor(kAccent), 2));
            painter->setBrush(Qt::NoBrush);
            painter->drawRoundedRect(QRectF(option->rect).adjusted(inset, inset, -inset, -inset),
                                     kRadius, kRadius);
        }
        painter->restore();
    }
};

QPalette DeskPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, 0xEFF2F5);
    palette.setColor(QPalette::WindowText, 0x1A2129);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, 0xF4F7FA);
    palette.setColor(QPalette::Text, 0x1A2129);
    palette.setColor(QPalette::PlaceholderText, 0x6B7680);
    palette.setColor(QPalette::Button, 0xE2E7EC);
    palette.setColor(QPalette::ButtonText, 0x1A2129);
    palette.setColor(QPalette::Highlight, kAccent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, 0xFFF8DC);
    palette.setColor(QPalette::ToolTipText, 0x1A2129);
    palette.setColor(QPalette::Link, kAccent);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, kDisabledText);
    return palette;
}

struct FontName {
    QStringView name;
    QStringView family;
};
// Print formats name the fonts of the house's former workstations.
constexpr FontName kFonts[] = {
    {u"黑体", u"Noto Sans CJK SC"},  {u"微软雅黑", u"Noto Sans CJK SC"},
    {u"宋体", u"Noto Serif CJK SC"}, {u"新宋体", u"Noto Serif CJK SC"},
    {u"仿宋", u"Noto Serif CJK SC"}, {u"仿宋_GB2312", u"Noto Serif CJK SC"},
    {u"楷体", u"Noto Serif CJK SC"}, {u"楷体_GB2312", u"Noto Serif CJK SC"},
};

} // namespace

void ApplyTheme(QApplication& application) {
    application.setStyle(new DeskStyle);
    application.setPalette(DeskPalette());
    application.setFont(FontFor(u"黑体", kTextPoints));

    auto* words = new QTranslator(&application);
    if (words->load(u"qtbase_zh_CN"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application.installTranslator(words);
}

QFont FontFor(QStringView name, double points, bool bold) {
    QString family = name.toString();
    for (const FontName& font : kFonts) {
        if (font.name == name)
            family = font.family.toString();
    }
    QFont font(family);
    font.setPointSizeF(points);
    font.setBold(bold);
    return font;
}

} // namespace hotel
