#include <numeric>

#include "record/code_page.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tests/test_files.h"
#include "tests/tools/paper/print_items.h"
#include "tools/paper/PrtSubs.h"
#include "tools/paper/print_amount.h"
#include "tools/paper/print_form_cells.h"
#include "tools/paper/print_pass.h"

using namespace hotel;

namespace {

// A block of a form and the cells of it that a screen fills.
struct FilledBlock {
    QStringView block;
    QList<int> cells;
};

QList<int> Cells(int first, int last) {
    QList<int> cells(last - first + 1);
    std::iota(cells.begin(), cells.end(), first);
    return cells;
}

QString Delivered(const QString& file, const QString& project) {
    return FileText(QStringLiteral(HOTEL_TREE) + u"/install/dygs/"_s + file + u'/' + project +
                    u".txt"_s);
}

} // namespace

// The forms as they are delivered.
class PrintFormatsTest : public QObject {
    Q_OBJECT

    WorkingFolder folder_;

private Q_SLOTS:
    // Every value stands on the sheet, nothing is outside of it, and nothing was complained about.
    void printsForms() {
        const auto row = [](const QString& file, QStringView form,
                            const QList<FilledBlock>& blocks) {
            const QString format = Delivered(file, form.toString());
            const PaperFormat paper = ReadPaperFormat(Delivered(file, tag::kPaper.toString()));
            MessageRecorder messages;
            OpenPrintJob(paper.width, paper.height);
            SetPrintMargins(paper.left, paper.right, paper.top, paper.bottom);
            StartPage();
            double y = 0;
            QStringList values;
            for (const FilledBlock& filled : blocks) {
                QMap<int, QString> cells;
                for (const int cell : filled.cells)
                    values.append(cells[cell] = filled.block + u"第%1格"_s.arg(cell));
                y += PrintFormBlockWithData(format, filled.block, 0, y, cells);
            }
            EndPage();
            FinishedPrintJob job = ReadPrintJob();
            ClosePrintJob();
            QCOMPARE(messages.words(), QStringList());
            QVERIFY2(y > 5 && y <= PrintableHeightCm(), qPrintable(file));
            QString printed;
            for (const PrintedText& text : TextsOf(job.script.previewPage(1))) {
                const double right = text.at.x() + TextWidthTwips(text.text, text.font);
                QVERIFY2(right <= (paper.width - paper.right) * kTwipsPerCm + 2,
                         qPrintable(text.text));
                printed += text.text;
            }
            for (const QString& value : values)
                QVERIFY2(printed.contains(value), qPrintable(file + value));
        };
        namespace guest = registration_form;
        namespace change = room_change_form;
        namespace deposit = deposit_form;
        const QList<int> oneGuest = Cells(guest::kGuest, guest::kSecondAddress);
        row(u"lkzsdjb.QVR"_s, guest::kName,
            {{tag::kFormTitle, {guest::kHotel}},
             {tag::kFormHead, {guest::kPartyRooms}},
             {tag::kFormBody,
              oneGuest + Cells(guest::kRoom, guest::kRemark) +
                  QList<int>{guest::kFormNumber, guest::kArrivalDate, guest::kArrivalTime,
                             guest::kFolio, guest::kRegistered, guest::kReception}},
             {tag::kFormBody1, {}},
             {tag::kFormFoot, {}}});
        row(u"Krhftzd.QVR"_s, change::kName,
            {{tag::kFormTitle, {change::kHotel}},
             {tag::kFormHead,
              {change::kOldRoom, change::kNewRoom, change::kRoomType, change::kPrice,
               change::kFolio, change::kReason}},
             {tag::kFormBody, {}},
             {tag::kFormBody1, oneGuest},
             {tag::kFormBody1, oneGuest},
             {tag::kFormFoot, {change::kOperator}}});
        row(u"bkyjpz.QVR"_s, deposit::kName,
            {{tag::kFormTitle, {deposit::kHotel}},
             {tag::kFormHead, {deposit::kMoment, deposit::kFolio}},
             {tag::kFormBody,
              {deposit::kGuest, deposit::kRoom, deposit::kTelephone, deposit::kOperator,
               deposit::kAmount, deposit::kAmountInWords, deposit::kKind}},
             {tag::kFormFoot, {}}});
    }

    // The printed log begins where its record says.
    void holdsTheAuditFormat() {
        const QString lines = GetTag(Delivered(u"ysjlqd.QVR"_s, audit_form::kProject.toString()),
                                     audit_form::kRecord);
        for (const QStringView field : {u"左边界", u"上边界", u"粗体", u"字号", u"字体"})
            QVERIFY2(!GetTag(lines, field).isEmpty(), qPrintable(field.toString()));
        QVERIFY(LeadingNumber(GetTag(lines, audit_form::kLineSpacing)) > 3);
    }

    // A file's paper is read, and every character comes through the wire as it is.
    void comesThroughTheWire() {
        QDir dygs(QStringLiteral(HOTEL_TREE) + u"/install/dygs"_s);
        const QStringList files = dygs.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        QCOMPARE(files.size(), 9);
        for (const QString& file : files) {
            const QString paper = Delivered(file, tag::kPaper.toString());
            QVERIFY2(ReadPaperFormat(paper).width > 20, qPrintable(file));
            for (const QString& project :
                 QDir(dygs.filePath(file)).entryList({u"*.txt"_s}, QDir::Files)) {
                const QString text = Delivered(file, project.chopped(4));
                QCOMPARE(WireDecoder().decode(EncodeForWire(text)), text);
            }
        }
    }

    void writesAmountsInWords() {
        const auto row = [](const char* amount, const QString& words) {
            Check(amount, AmountInWords(Money::FromText(QString::fromLatin1(amount))), words);
        };
        row("0", u"零元整"_s);
        row("1200", u"壹仟贰佰元整"_s);
        row("10", u"壹拾元整"_s);
        row("1234.56", u"壹仟贰佰叁拾肆元伍角陆分"_s);
        row("1004.50", u"壹仟零肆元伍角整"_s);
        row("100200", u"壹拾万零贰佰元整"_s);
        row("10001000", u"壹仟万壹仟元整"_s);
        row("12030405.06", u"壹仟贰佰零叁万零肆佰零伍元零陆分"_s);
        row("100000001", u"壹亿零壹元整"_s);
        row("0.05", u"伍分"_s);
        row("0.50", u"伍角整"_s);
        row("-8.08", u"负捌元零捌分"_s);
        row("-0.001", u"零元整"_s);
    }
};

HOTEL_TEST(PrintFormatsTest)

#include "test_print_formats.moc"
