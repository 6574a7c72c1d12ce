#include "session/parameters.h"

#include "tests/hotel_test.h"

using namespace hotel;

class ParametersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { cleanup(); }
    void cleanup() {
        SetSiteParameters({});
        ResetParameters();
    }

    // What the house's files stand under, written out: a wrong letter would open another file.
    void defaults() {
        const auto row = [](const char* names, const QString& values) {
            QStringList current;
            for (const QString& name : QString::fromLatin1(names).split(u' '))
                current += Param(name);
            Check(names, current.join(u' '), values);
        };
        row("Yhdwmc CamDev", u" "_s);
        row("XtsjLj Flmcxx GzrDB", u"QVR\\ Flmcxx.QVR gzrdy.qvr"_s);
        row("KfxxLj Kfjbxx KfZpLj FtczLj FwmxDb", u"kfxx\\ Kfjbxx.QVR kfzp\\ ftcz\\ Kffwmx.QVR"_s);
        row("KzxxLj Jzhxx YskDB YskDbLj", u"kzxx\\ Jzh.QVR ysk.QVR yskzl\\"_s);
        row("KszlLj KrzpLj QtzpLj SysLog", u"kszl\\ krzp\\ qtzp\\ BglogRec\\"_s);
        row("ScwjLj DygsLj XtgsLj TjxxLj", u"Txt\\ dygs\\ format\\ tjxx\\"_s);
        row("Ydxx YdxxLs YdxxLj", u"Kfydxx.QVR KfydxxLs.QVR ydxx\\"_s);
        row("Pmjbxx PmxxLj WxDb WxDbLj", u"Pmjbxx.QVR pmxx\\ wxzl.QVR wxzl\\"_s);
        row("SwDB SwDBLj SwzpLj", u"swzl.QVR swzl\\ swzp\\"_s);
        row("DsRwDb DsRwLj JhrwDB JhrwDBlj", u"dsrwzl.QVR dsrwzl\\ Jhrw.QVR Jhrw\\"_s);
        row("GysDb GysZjDB GysDbLj GyxxDbLj", u"Gys.QVR GysZj.QVR Gys\\ Gyxx\\"_s);
        row("Tdxx TdxxLj", u"TdxxDB.QVR tdxx\\"_s);
        row("YgxxPath Ygxx YgJmxx YgxxLs YgJmxxLs YgZp",
            u"Ygxx\\ Ygxx.QVR YgJmxx.QVR YgxxLs.QVR YgJmxxLs.QVR Ygzp\\"_s);
        row("KqxxPath KqtjLj KqzpPath", u"Kqxx\\ Kqtj\\ Kqzp\\"_s);
        row("KqCg KqSb Ygsr", u"Wave\\成功.wav Wave\\失败.wav Wave\\生日歌.mid"_s);
        row("KqQdSx ErrPause AutoFy", u"0 0 0"_s);
        row("ZsdjFmt YsjlFmt Bkyjpz Krhftzd", u"lkzsdjb.QVR ysjlqd.QVR bkyjpz.QVR Krhftzd.QVR"_s);
        row("Ffmxd Dhmxd Kdmxd Cymxd", u"ffmxd.QVR dhmxd.QVR kdmxd.QVR cymxd.QVR"_s);
        row("AlmFile DogFile", u"wave\\闹铃.wav wave\\狗叫.wav"_s);
        row("JeGs XYtks Bjsx1 Bjsx2 Yjbj", u"#0.0 06:00 12:00 12:00 06:00"_s);
        QCOMPARE(Parameters().size(), 72U);
    }

    void aChangeComesBeforeTheSiteAndTheSiteBeforeTheDefault() {
        SetParam(u"KfxxLj", u"changed\\"_s);
        SetSiteParameters({{u"KfxxLj"_s, u"site\\"_s}, {u"AutoFy"_s, u"1"_s}});
        QCOMPARE(Param(u"KfxxLj"), u"changed\\"_s);
        QVERIFY(ParamOn(u"AutoFy"));
        QVERIFY(!ParamOn(u"ErrPause"));
        SetParam(u"AutoFy", u"0"_s);
        QVERIFY(!ParamOn(u"AutoFy"));
        ResetParameters();
        QCOMPARE(Param(u"KfxxLj"), u"site\\"_s);
        QVERIFY(ParamOn(u"AutoFy"));
        SetSiteParameters({{u"KzxxLj"_s, u"accounts\\"_s}});
        QCOMPARE(Param(u"KfxxLj"), u"kfxx\\"_s);
        QCOMPARE(Param(u"KzxxLj"), u"accounts\\"_s);
    }

    void valuesThatCanNotBe() {
        const auto row = [](QStringView name, const QString& value, const QString& objection) {
            const auto all = Parameters();
            const auto parameter = std::ranges::find(all, name, &Parameter::name);
            Check(qPrintable(name.toString() + u"=" + value), CheckParameter(*parameter, value),
                  objection);
        };
        row(u"Yhdwmc", u"海天宾馆"_s, {});
        row(u"Yhdwmc", {}, {});
        row(u"Yhdwmc", u"海天<宾馆"_s, u"不能含有“<”或“>”"_s);
        row(u"Yhdwmc", u"海天>宾馆"_s, u"不能含有“<”或“>”"_s);
        row(u"Jzhxx", {}, u"不能为空"_s);
        row(u"KfxxLj", u"rooms"_s, u"必须以“\\”结尾"_s);
        row(u"KfxxLj", u"rooms\\"_s, {});
        row(u"AutoFy", u"1"_s, {});
        row(u"AutoFy", u"0"_s, {});
        row(u"AutoFy", u"2"_s, u"只能是0或1"_s);
        row(u"AutoFy", u"是"_s, u"只能是0或1"_s);
        for (const QStringView time : {u"XYtks", u"Bjsx1", u"Bjsx2", u"Yjbj"}) {
            row(time, u"23:59"_s, {});
            row(time, u"24:00"_s, u"必须是“HH:mm”形式的时间"_s);
        }
        row(u"Bjsx1", u"7:30"_s, u"必须是“HH:mm”形式的时间"_s);
    }
};

HOTEL_TEST(ParametersTest)

#include "test_parameters.moc"
