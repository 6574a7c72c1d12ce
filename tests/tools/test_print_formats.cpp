#include <QPdfWriter>
#include <QTemporaryDir>
#include <QtTest>

#include "platform/clock.h"
#include "record/code_page.h"
#include "record/field_walk.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "tests/hotel_test.h"
#include "tests/tools/print_items.h"
#include "tools/PrtSubs.h"
#include "tools/print_amount.h"
#include "tools/print_form_cells.h"
#include "tools/print_pass.h"

namespace hotel {

namespace {

using Values = QMap<int, QString>;

// A block as a screen prints it.
struct FilledBlock {
    QStringView block;
    Values values;
};

QString Delivered(const QString& file, const QString& project) {
    QFile text(QStringLiteral(HOTEL_TREE) + u"/install/dygs/"_s + file + u'/' + project +
               u".txt"_s);
    return text.open(QIODevice::ReadOnly) ? QString::fromUtf8(text.readAll()) : QString();
}

QList<FilledBlock> Registration() {
    namespace cell = registration_form;
    return {{tag::kFormTitle, {{cell::kHotel, u"云水宾馆"_s}}},
            {tag::kFormHead, {{cell::kPartyRooms, u"8101,8102,8103"_s}}},
            {tag::kFormBody,
             {{cell::kGuest, u"欧阳晓光"_s},
              {cell::kSex, u"男"_s},
              {cell::kAge, u"35"_s},
              {cell::kAddress, u"浙江省,杭州市,西湖区文三路一百二十八号三单元五〇二室"_s},
              {cell::kJobTitle, u"高级工程师"_s},
              {cell::kDocumentKind, u"身份证"_s},
              {cell::kDocumentNumber, u"330106199103052317"_s},
              {cell::kReason, u"公务旅行"_s},
              {cell::kFrom, u"浙江"_s},
              {cell::kTo, u"内蒙古"_s},
              {cell::kDeparture, u"2026-03-06"_s},
              {cell::kSecondGuest, u"王小明"_s},
              {cell::kSecondSex, u"女"_s},
              {cell::kSecondAge, u"33"_s},
              {cell::kSecondAddress, u"江苏省,南京市,鼓楼区"_s},
              {cell::kRoom, u"8101"_s},
              {cell::kRoomType, u"标准双人间"_s},
              {cell::kPrice, u"288.00"_s},
              {cell::kRemark, u"生日:2026-03-05"_s},
              {cell::kFormNumber, u"260305100000"_s},
              {cell::kArrivalDate, u"2026-03-05"_s},
              {cell::kArrivalTime, u"10:00"_s},
              {cell::kFolio, u"260305100000"_s},
              {cell::kRegistered, u"2026-03-05"_s},
              {cell::kReception, u"李静"_s}}},
            {tag::kFormBody1, {}},
            {tag::kFormFoot, {}}};
}

QList<FilledBlock> RoomChange() {
    namespace cell = room_change_form;
    namespace guest = registration_form;
    const auto person = [](const QString& name, const QString& sex) {
        const QString address = u"四川省,成都市,武侯区人民南路四段十九号"_s;
        return Values{{guest::kGuest, name},
                      {guest::kSex, sex},
                      {guest::kAge, u"41"_s},
                      {guest::kAddress, address},
                      {guest::kJobTitle, u"经理"_s},
                      {guest::kDocumentKind, u"身份证"_s},
                      {guest::kDocumentNumber, u"510107198503052317"_s},
                      {8, u" "_s},
                      {guest::kReason, u"公务旅行"_s},
                      {guest::kFrom, u"四川"_s},
                      {guest::kTo, u"上海"_s},
                      {12, u" "_s},
                      {guest::kDeparture, u"2026-03-08"_s},
                      {guest::kSecondGuest, name},
                      {guest::kSecondSex, sex},
                      {guest::kSecondAge, u"41"_s},
                      {guest::kSecondAddress, address}};
    };
    return {{tag::kFormTitle, {{cell::kHotel, u"云水宾馆"_s}}},
            {tag::kFormHead,
             {{cell::kOldRoom, u"8101"_s},
              {cell::kNewRoom, u"8305"_s},
              {cell::kRoomType, u"豪华套间"_s},
              {cell::kPrice, u"588.00"_s},
              {cell::kFolio, u"260305100000"_s},
              {cell::kReason, u"空调故障"_s}}},
            {tag::kFormBody, {}},
            {tag::kFormBody1, person(u"赵建国"_s, u"男"_s)},
            {tag::kFormBody1, person(u"钱丽华"_s, u"女"_s)},
            {tag::kFormFoot, {{cell::kOperator, u"李静"_s}}}};
}

QList<FilledBlock> Deposit() {
    namespace cell = deposit_form;
    return {{tag::kFormTitle, {{cell::kHotel, u"云水宾馆"_s}}},
            {tag::kFormHead,
             {{cell::kMoment, u"2026-03-05 10:00"_s}, {cell::kFolio, u"260305100000"_s}}},
            {tag::kFormBody,
             {{cell::kGuest, u"欧阳晓光"_s},
              {cell::kRoom, u"8101"_s},
              {cell::kTelephone, u"68101"_s},
              {cell::kOperator, u"李静"_s},
              {cell::kAmount, u"1200.00"_s},
              {cell::kAmountInWords, AmountInWords(Money::FromText(u"1200"))},
              {cell::kKind, u"种类:现金押金, 方式:现金,收据号 0031285"_s}}},
            {tag::kFormBody1, {}},
            {tag::kFormFoot, {}}};
}

} // namespace

// The forms as they are delivered, filled as the screens fill them. With PRINT_SAMPLES set to a folder
// they are left there as PDF files, to be looked at.
class PrintFormatsTest : public QObject {
    Q_OBJECT

private:
    void leaveSample(FinishedPrintJob& job, const QString& name) {
        const QString folder = qEnvironmentVariable("PRINT_SAMPLES");
        if (folder.isEmpty())
            return;
        QPdfWriter pdf(folder + u'/' + name + u".pdf"_s);
        pdf.setPageSize(QPageSize(job.paper * 10, QPageSize::Millimeter));
        pdf.setPageMargins(QMarginsF());
        QPainter painter(&pdf);
        painter.scale(pdf.resolution() / 1440.18, pdf.resolution() / 1440.18);
        job.script.printPages(1, 1, [&](const PrintPage& page) {
            DrawPage(painter, page, job.paper * kTwipsPerCm);
            return true;
        });
    }

    QTemporaryDir folder_;
    QString folderBefore_ = QDir::currentPath();

private Q_SLOTS:
    void initTestCase() {
        QDir::setCurrent(folder_.path());
        Clock::Freeze(QDateTime(QDate(2026, 3, 5), QTime(10, 0)));
    }
    void cleanupTestCase() {
        ClosePrintJob();
        Clock::Resume();
        QDir::setCurrent(folderBefore_);
    }

    void printsForms_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("form");
        QTest::addColumn<QList<FilledBlock>>("blocks");
        QTest::newRow("registration")
            << u"lkzsdjb.QVR"_s << registration_form::kName.toString() << Registration();
        QTest::newRow("room change")
            << u"Krhftzd.QVR"_s << room_change_form::kName.toString() << RoomChange();
        QTest::newRow("deposit") << u"bkyjpz.QVR"_s << deposit_form::kName.toString() << Deposit();
    }

    // Every value stands on the sheet, nothing is outside of it, and nothing was complained about.
    void printsForms() {
        QFETCH(QString, file);
        QFETCH(QString, form);
        QFETCH(QList<FilledBlock>, blocks);
        const QString format = Delivered(file, form);
        const PaperFormat paper = ReadPaperFormat(Delivered(file, tag::kPaper.toString()));
        MessageRecorder messages;
        OpenPrintJob(paper.width, paper.height);
        SetPrintMargins(paper.left, paper.right, paper.top, paper.bottom);
        StartPage();
        double y = 0;
        for (const FilledBlock& filled : blocks)
            y += PrintFormBlockWithData(format, filled.block, 0, y, filled.values);
        EndPage();
        FinishedPrintJob job = ReadPrintJob();
        leaveSample(job, form);

        QCOMPARE(messages.words(), QStringList());
        QVERIFY(y > 5 && y <= PrintableHeightCm());
        QString printed;
        for (const PrintedText& text : TextsOf(job.script.previewPage(1))) {
            const double right = text.at.x() + TextWidthTwips(text.text, text.font);
            QVERIFY2(right <= (paper.width - paper.right) * kTwipsPerCm + 2, qPrintable(text.text));
            printed += text.text;
        }
        for (const FilledBlock& filled : blocks)
            for (const QString& value : filled.values)
                QVERIFY2(printed.contains(value), qPrintable(value));
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
        QCOMPARE(files.size(), 8);
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

    void writesAmountsInWords_data() {
        QTest::addColumn<QString>("amount");
        QTest::addColumn<QString>("words");
        const auto row = [](const char* amount, const QString& words) {
            QTest::newRow(amount) << QString::fromLatin1(amount) << words;
        };
        row("0", u"零元整"_s);
        row("1200", u"壹仟贰佰元整"_s);
        row("10", u"壹拾元整"_s);
        row("1234.56", u"壹仟贰佰叁拾肆元伍角陆分"_s);
        row("1004.50", u"壹仟零肆元伍角整"_s);
        row("10000", u"壹万元整"_s);
        row("100200", u"壹拾万零贰佰元整"_s);
        row("10001000", u"壹仟万壹仟元整"_s);
        row("12030405.06", u"壹仟贰佰零叁万零肆佰零伍元零陆分"_s);
        row("100000000", u"壹亿元整"_s);
        row("100000001", u"壹亿零壹元整"_s);
        row("0.05", u"伍分"_s);
        row("0.50", u"伍角整"_s);
        row("19.995", u"贰拾元整"_s);
        row("-8.08", u"负捌元零捌分"_s);
        row("-0.001", u"零元整"_s);
    }

    void writesAmountsInWords() {
        QFETCH(QString, amount);
        QTEST(AmountInWords(Money::FromText(amount)), "words");
    }
};

HOTEL_TEST(PrintFormatsTest)

} // namespace hotel

#include "test_print_formats.moc"
