#include "session/parameters.h"

#include <QTime>

#include "record/literals.h"
#include "record/numbers.h"

namespace hotel {

namespace {

constexpr Parameter kParameters[] = {
    {u"Yhdwmc", u"", u"宾馆名称"},
    {u"XtsjLj", u"QVR\\", u"公用数据库路径", ParameterKind::Folder},
    {u"Flmcxx", u"Flmcxx.QVR", u"分类定义信息库"},
    {u"Kfjbxx", u"Kfjbxx.QVR", u"客房基本信息库"},
    {u"Jzhxx", u"Jzh.QVR", u"结账号信息库"},
    {u"KfxxLj", u"kfxx\\", u"客房信息存放路径", ParameterKind::Folder},
    {u"KfZpLj", u"kfzp\\", u"客房照片存放路径", ParameterKind::Folder},
    {u"KzxxLj", u"kzxx\\", u"客账信息存放路径", ParameterKind::Folder},
    {u"KszlLj", u"kszl\\", u"客人历史资料路径", ParameterKind::Folder},
    {u"KrzpLj", u"krzp\\", u"客人照片存放路径", ParameterKind::Folder},
    {u"QtzpLj", u"qtzp\\", u"前厅照片存放路径", ParameterKind::Folder},
    {u"FtczLj", u"ftcz\\", u"房态修改操作路径", ParameterKind::Folder},
    {u"SysLog", u"BglogRec\\", u"操作记录存放路径", ParameterKind::Folder},
    {u"ScwjLj", u"Txt\\", u"输出清单文件路径", ParameterKind::Folder},
    {u"DygsLj", u"dygs\\", u"表格格式存放路径", ParameterKind::Folder},
    {u"XtgsLj", u"format\\", u"公共打印格式路径", ParameterKind::Folder},
    {u"FwmxDb", u"Kffwmx.QVR", u"客房服务明细库"},
    {u"Ydxx", u"Kfydxx.QVR", u"客房预定信息库"},
    {u"YdxxLs", u"KfydxxLs.QVR", u"预定历史信息库"},
    {u"YdxxLj", u"ydxx\\", u"预定信息存放路径", ParameterKind::Folder},
    {u"Pmjbxx", u"Pmjbxx.QVR", u"铺面基本信息库"},
    {u"PmxxLj", u"pmxx\\", u"铺面信息存放路径", ParameterKind::Folder},
    {u"WxDb", u"wxzl.QVR", u"维修数据库"},
    {u"WxDbLj", u"wxzl\\", u"维修信息路径", ParameterKind::Folder},
    {u"SwDB", u"swzl.QVR", u"失物数据库"},
    {u"SwDBLj", u"swzl\\", u"失物信息路径", ParameterKind::Folder},
    {u"SwzpLj", u"swzp\\", u"失物照片路径", ParameterKind::Folder},
    {u"DsRwDb", u"dsrwzl.QVR", u"任务数据库"},
    {u"DsRwLj", u"dsrwzl\\", u"任务信息路径", ParameterKind::Folder},
    {u"JhrwDB", u"Jhrw.QVR", u"计划任务信息库"},
    {u"JhrwDBlj", u"Jhrw\\", u"计划任务路径", ParameterKind::Folder},
    {u"GysDb", u"Gys.QVR", u"供应商信息库"},
    {u"GysZjDB", u"GysZj.QVR", u"供应商资信库"},
    {u"GysDbLj", u"Gys\\", u"供应商信息路径", ParameterKind::Folder},
    {u"GyxxDbLj", u"Gyxx\\", u"供应信息路径", ParameterKind::Folder},
    {u"Tdxx", u"TdxxDB.QVR", u"团队客户信息库"},
    {u"TdxxLj", u"tdxx\\", u"团队信息存放路径", ParameterKind::Folder},
    {u"TjxxLj", u"tjxx\\", u"统计信息存放路径", ParameterKind::Folder},
    {u"YskDB", u"ysk.QVR", u"应收款数据库"},
    {u"YskDbLj", u"yskzl\\", u"应收款库路径", ParameterKind::Folder},
    {u"GzrDB", u"gzrdy.qvr", u"工作日数据库"},
    {u"YgxxPath", u"Ygxx\\", u"员工信息路径", ParameterKind::Folder},
    {u"Ygxx", u"Ygxx.QVR", u"员工信息库"},
    {u"YgJmxx", u"YgJmxx.QVR", u"员工简明信息库"},
    {u"YgxxLs", u"YgxxLs.QVR", u"员工历史信息库"},
    {u"YgJmxxLs", u"YgJmxxLs.QVR", u"员工简明历史库"},
    {u"YgZp", u"Ygzp\\", u"员工照片路径", ParameterKind::Folder},
    {u"KqxxPath", u"Kqxx\\", u"考勤信息路径", ParameterKind::Folder},
    {u"KqtjLj", u"Kqtj\\", u"考勤统计路径", ParameterKind::Folder},
    {u"KqzpPath", u"Kqzp\\", u"考勤照片路径", ParameterKind::Folder},
    {u"KqCg", u"Wave\\成功.wav", u"考勤成功声音"},
    {u"KqSb", u"Wave\\失败.wav", u"考勤失败声音"},
    {u"Ygsr", u"Wave\\生日歌.mid", u"员工生日声音"},
    {u"KqQdSx", u"0", u"考勤清单实时刷新", ParameterKind::Switch},
    {u"ErrPause", u"0", u"考勤错误暂停", ParameterKind::Switch},
    {u"ZsdjFmt", u"lkzsdjb.QVR", u"住宿登记表格式"},
    {u"YsjlFmt", u"ysjlqd.QVR", u"夜审记录清单格式"},
    {u"Bkyjpz", u"bkyjpz.QVR", u"宾客押金凭证格式"},
    {u"Ffmxd", u"ffmxd.QVR", u"房费明细单格式"},
    {u"Dhmxd", u"dhmxd.QVR", u"电话明细单格式"},
    {u"Kdmxd", u"kdmxd.QVR", u"宽带明细单格式"},
    {u"Cymxd", u"cymxd.QVR", u"餐娱明细单格式"},
    {u"Krhftzd", u"Krhftzd.QVR", u"换房通知单格式"},
    {u"AutoFy", u"0", u"完成登记后进入费用管理", ParameterKind::Switch},
    {u"AlmFile", u"wave\\闹铃.wav", u"提醒声音文件"},
    {u"DogFile", u"wave\\狗叫.wav", u"报警声音文件"},
    {u"CamDev", u"", u"摄像设备号"},
    {u"JeGs", u"#0.0", u"结账金额舍入格式"},
    {u"XYtks", u"06:00", u"一天开始时间", ParameterKind::Time},
    {u"Bjsx1", u"12:00", u"半价中午截止", ParameterKind::Time},
    {u"Bjsx2", u"12:00", u"半价晚间截止", ParameterKind::Time},
    {u"Yjbj", u"06:00", u"夜间半价开始", ParameterKind::Time},
};

using Values = QHash<QString, QString>;

Values& SiteValues() {
    static Values values;
    return values;
}

// Values changed since the start of the program.
Values& Changes() {
    static Values changes;
    return changes;
}

const Parameter* Find(QStringView name) {
    for (const Parameter& parameter : kParameters) {
        if (parameter.name == name)
            return &parameter;
    }
    Q_ASSERT_X(false, "Param", qPrintable(name.toString()));
    return nullptr;
}

} // namespace

std::span<const Parameter> Parameters() {
    return kParameters;
}

QString Param(QStringView name) {
    const Parameter* parameter = Find(name);
    if (!parameter)
        return {};
    const QString key = name.toString();
    for (const Values* values : {&Changes(), &SiteValues()}) {
        if (const auto value = values->constFind(key); value != values->constEnd())
            return *value;
    }
    return parameter->defaultValue.toString();
}

bool ParamOn(QStringView name) {
    return LeadingNumber(Param(name)) != 0;
}

void SetParam(QStringView name, const QString& value) {
    if (Find(name))
        Changes().insert(name.toString(), value);
}

QString CheckParameter(const Parameter& parameter, QStringView value) {
    if (value.isEmpty() && !parameter.defaultValue.isEmpty())
        return u"不能为空"_s;
    if (value.contains(u'<') || value.contains(u'>'))
        return u"不能含有“<”或“>”"_s;
    switch (parameter.kind) {
    case ParameterKind::Folder:
        return value.endsWith(u'\\') ? QString() : u"必须以“\\”结尾"_s;
    case ParameterKind::Switch:
        return value == u"0" || value == u"1" ? QString() : u"只能是0或1"_s;
    case ParameterKind::Time:
        return QTime::fromString(value, u"HH:mm").isValid() ? QString()
                                                            : u"必须是“HH:mm”形式的时间"_s;
    case ParameterKind::Text:
        break;
    }
    return {};
}

void SetSiteParameters(const QHash<QString, QString>& values) {
    SiteValues() = values;
}

void ResetParameters() {
    Changes().clear();
}

} // namespace hotel
