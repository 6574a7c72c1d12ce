#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "frontoffice/PhotoFrm.h"
#include "frontoffice/photo_capture.h"
#include "frontoffice/registration_form_print.h"
#include "house/common/paths.h"
#include "house/guests/guest_text.h"
#include "house/stays/check_in.h"
#include "link/serv_api.h"
#include "platform/camera.h"
#include "platform/clock.h"
#include "record/literals.h"
#include "record/record_text.h"
#include "screen/messages.h"
#include "screen/open_screen.h"
#include "screen/picture.h"
#include "session/operation_log.h"
#include "session/parameters.h"
#include "tests/hotel_test.h"
#include "tests/house/small_house.h"
#include "tests/test_files.h"
#include "tests/tools/paper/print_items.h"
#include "tools/paper/PrtPrev.h"
#include "tools/paper/PrtSubs.h"

using namespace hotel;

namespace {

// A camera that sees one colour.
class FakeCamera : public Camera {
public:
    bool present = true;
    bool broken = false;                 // connected, but gives no picture
    std::function<void()> duringTheWait; // while a picture is waited for
    QStringList devices;                 // that were connected to
    bool connected = false;

    FakeCamera() { Install(this); }
    ~FakeCamera() override { Install(nullptr); }

    bool CamConnect(const QString& device) override {
        devices.append(device);
        return connected = present;
    }
    QImage seen() const override {
        QImage picture(64, 48, QImage::Format_RGB32);
        picture.fill(QColor(30, 120, 200));
        return picture;
    }
    bool TakePhoto(const QString& file) override {
        if (duringTheWait)
            duringTheWait();
        return !broken && seen().save(file, "JPG");
    }
    void CamDisConnect() override { connected = false; }
};

PhotoFrm* OpenPhotoFrm() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* form = qobject_cast<PhotoFrm*>(window);
        if (form && form->isVisible())
            return form;
    }
    return nullptr;
}

// Once the picture is asked for: keys into the form, one after the other.
void PressInForm(const QList<Qt::Key>& keys) {
    QTimer::singleShot(0, qApp, [keys] {
        for (const Qt::Key key : keys) {
            if (QWidget* form = OpenPhotoFrm())
                QTest::keyClick(form->focusWidget() ? form->focusWidget() : form, key);
        }
    });
}

QStringList Texts(const PrintPage& page) {
    QStringList texts;
    for (const PrintedText& text : TextsOf(page))
        texts.append(text.text);
    return texts;
}

} // namespace

class PhotographsAndFormsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesPhotographs() {
        const TestHotel hotel;
        FakeCamera camera;
        MessageRecorder messages;
        QWidget parent;
        SetParam(u"CamDev", u"1"_s);

        PressInForm({Qt::Key_Return});
        const QString file = TakePhotograph(&parent, u"510105/1978.jpg"_s);
        QCOMPARE(QFileInfo(file).fileName(), u"510105_1978.jpg"_s);
        const QColor colour = QImage(file).pixelColor(30, 20);
        QVERIFY(qAbs(colour.blue() - 200) < 8 && qAbs(colour.red() - 30) < 8);
        QCOMPARE(camera.devices, QStringList{u"1"_s});
        QVERIFY(!camera.connected);

        PressInForm({Qt::Key_Escape});
        QVERIFY(TakePhotograph(&parent, u"a.jpg"_s).isEmpty());
        QVERIFY(!camera.connected);
        QCOMPARE(messages.words(), QStringList());
    }

    // The device goes away, the form is closed while the device is waited for, the asking screen goes.
    void survivesATakeThatFails() {
        const TestHotel hotel;
        FakeCamera camera;
        MessageRecorder messages;
        auto* parent = new QWidget;
        camera.broken = true;

        PressInForm({Qt::Key_Return, Qt::Key_Escape});
        QVERIFY(TakePhotograph(parent, u"a.jpg"_s).isEmpty());
        QCOMPARE(messages.words(),
                 QStringList{u"没有拍到照片，请检查摄像设备，或选择一个照片文件代替。"_s});

        messages.clear();
        camera.duringTheWait = [] { OpenPhotoFrm()->close(); };
        PressInForm({Qt::Key_Return});
        QVERIFY(TakePhotograph(parent, u"a.jpg"_s).isEmpty());
        QCOMPARE(messages.words(), QStringList());

        QTimer::singleShot(0, qApp, [parent] { delete parent; });
        QVERIFY(TakePhotograph(parent, u"a.jpg"_s).isEmpty());
        QVERIFY(!camera.connected);
    }

    // Without a camera, and with one that the user doesn't want: a file, whose original stays.
    void choosesAFile() {
        const TestHotel hotel;
        FakeCamera camera;
        MessageRecorder messages;
        const QTemporaryDir folder;
        const QString original = folder.filePath(u"扫描.jpg"_s);
        camera.seen().save(original, "JPG");

        for (const bool present : {false, true}) {
            messages.clear();
            camera.present = present;
            if (present)
                QTimer::singleShot(0, qApp, [] { OpenPhotoFrm()->command(u"FileCmd")->click(); });
            messages.answerNext(original);
            const QString file = TakePhotograph(nullptr, u"王一.jpg"_s);
            QVERIFY(file != original && QFileInfo(file).fileName() == u"王一.jpg");
            QCOMPARE(messages.words().contains(u"没有找到摄像设备，请选择一个照片文件代替。"_s),
                     !present);
            const QString guest = SetTag({}, guest_text::kPortrait, file);
            QCOMPARE(GetTag(WithUploadedPhotographs(guest), guest_text::kPortrait), u"王一.jpg"_s);
            QVERIFY(QFileInfo::exists(original) && !QFileInfo::exists(file));
        }
        QCOMPARE(DbDownloadFile(GuestPhotographFile(u"王一.jpg"), folder.filePath(u"back"_s)), 0);

        camera.present = false;
        messages.answerNext(u"/nowhere.jpg"_s);
        QVERIFY(TakePhotograph(nullptr, u"b.jpg"_s).isEmpty());
        QCOMPARE(messages.last(), u"照片文件不存在？"_s);
        messages.answerNext({});
        QVERIFY(TakePhotograph(nullptr, u"b.jpg"_s).isEmpty());
    }

    // A picture that could not come back from the server is scaled down; a file that is none is refused.
    void largePhotographs() {
        const TestHotel hotel;
        FakeCamera camera;
        camera.present = false;
        MessageRecorder messages;
        const QTemporaryDir folder;
        QImage noise(2000, 1500, QImage::Format_RGB32);
        for (int y = 0; y < noise.height(); ++y)
            for (int x = 0; x < noise.width(); ++x)
                noise.setPixel(x, y, QRgb(x * 2654435761u ^ y * 40503u));
        const QString original = folder.filePath(u"大.jpg"_s);
        noise.save(original, "JPG", 95);
        QVERIFY(QFileInfo(original).size() > 1'000'000);
        messages.answerNext(original);
        const QString file = TakePhotograph(nullptr, u"王一.jpg"_s);
        QVERIFY(QFileInfo(file).size() > 0 && QFileInfo(file).size() < 1'000'000);
        const QString guest = SetTag({}, guest_text::kPortrait, file);
        QCOMPARE(GetTag(WithUploadedPhotographs(guest), guest_text::kPortrait), u"王一.jpg"_s);
        QCOMPARE(DbDownloadFile(GuestPhotographFile(u"王一.jpg"), folder.filePath(u"back"_s)), 0);

        messages.answerNext(WriteBytes(folder.filePath(u"文.jpg"_s), QByteArray(1'000'000, 'x')));
        QVERIFY(TakePhotograph(nullptr, u"b.jpg"_s).isEmpty());
        QCOMPARE(messages.last(), u"照片文件太大，无法缩小，请选择小于1000000字节的照片！"_s);
        QVERIFY(DbUploadFile(folder.filePath(u"文.jpg"_s), u"krzp\\文.jpg") != 0);
        const QString fits = WriteBytes(folder.filePath(u"小.jpg"_s), QByteArray(999'999, 'x'));
        QCOMPARE(DbUploadFile(fits, u"krzp\\小.jpg"), 0);
        QCOMPARE(DbDownloadFile(u"krzp\\小.jpg", folder.filePath(u"small"_s)), 0);
    }

    // One sheet a room, every value of the working set on it, nothing beside the paper; the preview can
    // be looked at with PRINT_SAMPLES set to a folder.
    void printsTheRegistrationForm() {
        const TestHotel hotel;
        MessageRecorder messages;
        const QTemporaryDir folder;
        const QString folderBefore = QDir::currentPath();
        QDir::setCurrent(folder.path());
        RegisterScreen(u"PrtPrev", [] { return new PrtPrev; });

        QCOMPARE(RefuseRegistrationForm({})->title, u"以后再打印"_s);
        QCOMPARE(RefuseRegistrationForm({})->words,
                 u"还没有登记客人信息，或没有有效的登记信息，无法打印！"_s);

        QStringList rooms;
        for (int n = 8301; n <= 8312; ++n)
            rooms.append(QString::number(n));
        const QString more =
            u"<性别>女</性别><年龄>34</年龄><户口所在地>四川省,成都市,武侯区</户口所在地>"
            "<职务>会计师</职务><停留事由>旅游观光</停留事由><自何处来>成都</自何处来>"
            "<往何处去>重庆</往何处去><预计离店>2026-03-08</预计离店><接待>林晓燕</接待>"
            "<客房类型>标准双床房</客房类型><房间号>8301</房间号><特殊说明>含双早</特殊说明>"
            "<入住日期>2026-03-04</入住日期><入住时间>21:40</入住时间>"_s;
        QString set;
        set = WithGuest(set, u"8301", u"客人01",
                        ValidGuest(u"王一"_s, u"260305140509"_s, u"团队"_s, more));
        set = WithGuest(set, u"8301", u"客人02",
                        ValidGuest(u"李二"_s, u"260305140509"_s, u"团队"_s,
                                   u"<年龄>77</年龄><户口所在地>重庆市</户口所在地>"_s));
        set =
            WithGuest(set, u"8302", u"客人01", ValidGuest(u"张三"_s, u"260305140510"_s, u"团队"_s));
        SetParam(u"Yhdwmc", u"海天宾馆"_s);
        PrintRegistrationForm(set, rooms);

        PrintScript script = ScriptOfJob();
        const QStringList first = Texts(script.previewPage(1));
        for (const QString& value : {u"海天宾馆"_s,   rooms.join(u','), u"王一"_s,
                                     u"女"_s,         u"34"_s,          u"四川省,成都市,武侯区"_s,
                                     u"会计师"_s,     u"旅游观光"_s,    u"成都"_s,
                                     u"重庆"_s,       u"2026-03-08"_s,  u"林晓燕"_s,
                                     u"8301"_s,       u"标准双床房"_s,  u"含双早"_s,
                                     u"李二"_s,       u"77"_s,          u"重庆市"_s,
                                     u"2026-03-04"_s, u"21:40"_s})
            QVERIFY2(first.contains(value), qPrintable(value));
        QCOMPARE(first.count(u"260305140509"_s), 2);
        QCOMPARE(first.count(u"2026-03-05"_s), 1); // of registration
        const QStringList second = Texts(script.previewPage(2));
        QVERIFY(second.contains(u"张三"_s) && !second.contains(u"李二"_s));
        QVERIFY(Texts(script.previewPage(3)).isEmpty()); // 8303 and on have no guests yet

        const QString log = OperationLogFile(u"2026-03-05", Clock::Today());
        const QString entry = DbReadRecord(log, operation_log::kProject, u"100000");
        QCOMPARE(GetTag(entry, operation_log::kOperation), u"入住登记打印功能"_s);
        QVERIFY(GetTag(entry, operation_log::kRemark).startsWith(u"260305140509,260305140510"));
        QCOMPARE(messages.words(), QStringList());
        if (const QString samples = qEnvironmentVariable("PRINT_SAMPLES"); !samples.isEmpty()) {
            QWidget* preview = FindScreen(u"PrtPrev");
            preview->resize(1500, 1150);
            preview->findChild<QComboBox*>(u"zVal"_s)->setCurrentText(u"整页"_s);
            QCoreApplication::processEvents();
            SavePicture(preview, samples + u"/registration.png"_s);
        }
        CloseAllScreens();

        SetParam(u"ZsdjFmt", u"missing.QVR"_s);
        PrintRegistrationForm(set, rooms);
        QCOMPARE(messages.last(), u"没有可以打印的内容!"_s);
        QDir::setCurrent(folderBefore);
    }
};

HOTEL_TEST(PhotographsAndFormsTest)
#include "test_photographs_and_forms.moc"
