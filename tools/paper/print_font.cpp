#include "tools/paper/print_font.h"

#include <QFontMetricsF>
#include <QHash>

#include "record/literals.h"
#include "screen/theme.h"

namespace hotel {

namespace {

// The line metrics of the CJK fonts leave half an em of air between lines; forms are laid out for
// lines that stand closer.
constexpr double kLineHeightInEms = 1.15;

// A column measured for a text must hold that text, whatever centimetres do to its last digit.
constexpr double kRoundingSlack = 0.5;

// What is known of a font so far. Only numbers are kept: the memo outlives the application object.
struct Measures {
    double lineHeight = 0;
    double baseline = 0;
    QHash<char32_t, double> widths;
};

Measures& MeasuresOf(const PrintFont& font) {
    static QHash<QString, Measures> known;
    const QString key = font.name + u'|' + QString::number(font.size) + (font.bold ? u'B' : u'-');
    auto found = known.find(key);
    if (found == known.end()) {
        const QFontMetricsF metrics(FontInTwips(font));
        const QRectF ideograph = metrics.tightBoundingRect(u"国"_s);
        Measures measures;
        measures.lineHeight = qMin(metrics.height(), font.size * kTwipsPerPoint * kLineHeightInEms);
        measures.baseline = measures.lineHeight / 2 - ideograph.center().y();
        found = known.insert(key, measures);
    }
    return *found;
}

// 2 for a character outside the basic plane, which must not be torn apart.
qsizetype CharacterLength(QStringView text, qsizetype at) {
    return at + 1 < text.size() && text[at].isHighSurrogate() && text[at + 1].isLowSurrogate() ? 2
                                                                                               : 1;
}

QStringView CharacterAt(QStringView text, qsizetype at) {
    return text.sliced(at, CharacterLength(text, at));
}

double WidthOf(QStringView character, const PrintFont& font, Measures& measures) {
    const char32_t key = character.size() == 1 ? char32_t(character[0].unicode())
                                               : QChar::surrogateToUcs4(character[0], character[1]);
    auto width = measures.widths.constFind(key);
    if (width == measures.widths.constEnd()) {
        const QFontMetricsF metrics(FontInTwips(font));
        width = measures.widths.insert(key, metrics.horizontalAdvance(character.toString()));
    }
    return *width;
}

} // namespace

QFont FontInTwips(const PrintFont& font) {
    QFont result = FontFor(font.name, font.size, font.bold);
    result.setPixelSize(qMax(1, qRound(font.size * kTwipsPerPoint)));
    result.setKerning(false);
    result.setHintingPreference(QFont::PreferNoHinting);
    return result;
}

double TextWidthTwips(QStringView text, const PrintFont& font) {
    Measures& measures = MeasuresOf(font);
    double sum = 0;
    for (qsizetype at = 0; at < text.size(); at += CharacterLength(text, at))
        sum += WidthOf(CharacterAt(text, at), font, measures);
    return sum;
}

QStringList CutToWidth(const QString& text, const PrintFont& font, double width) {
    Measures& measures = MeasuresOf(font);
    QStringList lines;
    qsizetype lineStart = 0;
    double lineWidth = 0;
    for (qsizetype at = 0; at < text.size(); at += CharacterLength(text, at)) {
        const double characterWidth = WidthOf(CharacterAt(text, at), font, measures);
        if (at > lineStart && lineWidth + characterWidth > width + kRoundingSlack) {
            lines.append(text.sliced(lineStart, at - lineStart));
            lineStart = at;
            lineWidth = 0;
        }
        lineWidth += characterWidth;
    }
    lines.append(text.sliced(lineStart));
    return lines;
}

QStringList Characters(const QString& text) {
    QStringList characters;
    for (qsizetype at = 0; at < text.size(); at += characters.last().size())
        characters.append(text.sliced(at, CharacterLength(text, at)));
    return characters;
}

double LineHeightTwips(const PrintFont& font) {
    return MeasuresOf(font).lineHeight;
}

double BaselineTwips(const PrintFont& font) {
    return MeasuresOf(font).baseline;
}

} // namespace hotel
