#include "app/demo/consumption.h"

// Who came today has had nothing yet, and who came yesterday nothing this morning: it may be the small hours
// now, when this morning is yesterday's. What is of the last hours is told in minutes.

namespace hotel {

namespace {

DemoPosting Meal(DemoMoment at, QStringView room, QStringView name, QStringView place,
                 QStringView number, QStringView unit, QStringView amount, QStringView note = {}) {
    return {at,
            room,
            kFoodPosting,
            {{u"费用名称", name},
             {u"结算地点", place},
             {u"计量单位", unit},
             {u"数量", number},
             {u"金额", amount},
             {u"备注", note}}};
}

DemoPosting Call(DemoMoment at, QStringView room, QStringView name, QStringView minutes,
                 QStringView to, QStringView number, QStringView fee, QStringView service) {
    return {at,
            room,
            kTelephonePosting,
            {{u"费用名称", name},
             {u"结算地点", u"总机"},
             {u"时长", minutes},
             {u"通达地区", to},
             {u"被叫号码", number},
             {u"话费金额", fee},
             {u"服务费", service}}};
}

DemoPosting Network(DemoMoment at, QStringView room, QStringView name, QStringView minutes,
                    QStringView fee) {
    return {at,
            room,
            kBroadbandPosting,
            {{u"费用名称", name}, {u"时长", minutes}, {u"基本金额", fee}, {u"服务费", u"0.00"}}};
}

DemoPosting Service(DemoMoment at, QStringView room, QStringView name, QStringView detail,
                    QStringView number, QStringView unit, QStringView amount) {
    return {at,
            room,
            kServicePosting,
            {{u"服务类别", name},
             {u"服务明细", detail},
             {u"计量单位", unit},
             {u"数量", number},
             {u"金额", amount}}};
}

const QList<DemoPosting> kPostings = {
    // --- long stays ---
    Network(DaysAgo(26, u"11:05"), u"8315", u"宽带包月", {}, u"120.00"),
    Meal(DaysAgo(21, u"18:42"), u"8315", u"中餐", u"中餐厅", u"1", u"桌", u"326.00", u"请客"),
    Service(DaysAgo(17, u"09:12"), u"8315", u"洗衣服务", u"衬衣", u"4", u"件", u"48.00"),
    Call(DaysAgo(14, u"20:31"), u"8315", u"国内长途", u"18", u"武汉", u"02787654031", u"10.80",
         u"1.08"),
    Meal(DaysAgo(9, u"21:16"), u"8315", u"酒水", u"大堂吧", u"2", u"杯", u"56.00"),
    Service(DaysAgo(5, u"09:07"), u"8315", u"洗衣服务", u"西装", u"1", u"套", u"40.00"),
    Meal(DaysAgo(11, u"12:20"), u"8415", u"自助餐", u"西餐厅", u"2", u"位", u"176.00"),
    Network(DaysAgo(11, u"20:02"), u"8415", u"宽带包日", {}, u"15.00"),
    Call(DaysAgo(8, u"19:46"), u"8415", u"国内长途", u"9", u"西安", u"02988240561", u"5.40",
         u"0.54"),
    Meal(DaysAgo(4, u"19:33"), u"8415", u"足浴", u"足浴中心", u"2", u"人次", u"196.00"),

    // --- guests of the last days ---
    Meal(DaysAgo(3, u"19:10"), u"8504", u"宴席", u"宴会厅", u"1", u"桌", u"1280.00", u"六位"),
    Service(DaysAgo(3, u"22:40"), u"8504", u"迷你吧", u"啤酒", u"2", u"罐", u"24.00"),
    Meal(DaysAgo(2, u"08:02"), u"8602", u"早餐", u"早餐厅", u"1", u"份", u"38.00"),
    Call(DaysAgo(2, u"21:15"), u"8602", u"移动电话", u"6", u"上海", u"13801770025", u"3.60",
         u"0.36"),
    Meal(DaysAgo(2, u"18:25"), u"8202", u"中餐", u"中餐厅", u"2", u"份", u"142.00"),
    Meal(DaysAgo(1, u"20:36"), u"8202", u"歌厅", u"歌厅", u"2", u"小时", u"160.00"),
    Meal(DaysAgo(1, u"12:44"), u"8716", u"西餐", u"西餐厅", u"2", u"份", u"316.00"),
    Meal(DaysAgo(1, u"15:30"), u"8716", u"商务服务", u"商务中心", u"24", u"页", u"48.00", u"复印"),
    Call(DaysAgo(1, u"16:08"), u"8716", u"国内长途", u"22", u"北京", u"01065881190", u"13.20",
         u"1.32"),
    Service(DaysAgo(1, u"18:20"), u"8317", u"加床加被", u"儿童床", u"1", u"张", u"60.00"),
    Meal(DaysAgo(1, u"18:05"), u"8317", u"自助餐", u"西餐厅", u"3", u"位", u"220.00"),
    Network(DaysAgo(1, u"22:10"), u"8209", u"宽带计时", u"95", u"9.50"),
    Meal(DaysAgo(1, u"12:10"), u"8610", u"会议用餐", u"中餐厅", u"1", u"份", u"58.00"),

    // --- the conference and the tour group ---
    Meal(DaysAgo(1, u"12:30"), u"8501", u"会议用餐", u"宴会厅", u"2", u"桌", u"1760.00"),
    Meal(DaysAgo(1, u"14:00"), u"8501", u"会议场地", u"会议中心", u"4", u"小时", u"1200.00"),
    Meal(DaysAgo(1, u"15:40"), u"8503", u"茶点", u"会议中心", u"14", u"份", u"308.00"),
    Meal(DaysAgo(1, u"18:30"), u"8303", u"宴席", u"宴会厅", u"3", u"桌", u"2040.00", u"团餐"),
    Call(DaysAgo(1, u"21:02"), u"8303", u"移动电话", u"11", u"长沙", u"13973100268", u"6.60",
         u"0.66"),

    // --- yesterday's and today's ---
    Meal(DaysAgo(1, u"19:15"), u"8603", u"西餐", u"西餐厅", u"1", u"份", u"168.00"),
    Call(DaysAgo(1, u"21:40"), u"8603", u"国际长途", u"12", u"瑞典", u"0046855512034", u"57.60",
         u"5.76"),
    Service(DaysAgo(1, u"22:05"), u"8702", u"送餐服务", u"夜宵", u"2", u"份", u"92.00"),
    Meal(DaysAgo(1, u"20:20"), u"8604", u"咖啡", u"咖啡厅", u"2", u"杯", u"64.00"),
    Call(DaysAgo(1, u"22:18"), u"8604", u"港澳台长途", u"8", u"香港", u"0085225231180", u"24.00",
         u"2.40"),
    Network(DaysAgo(1, u"21:00"), u"8705", u"宽带包日", {}, u"15.00"),
    Service(DaysAgo(1, u"22:30"), u"8705", u"迷你吧", u"矿泉水", u"2", u"瓶", u"16.00"),
    Meal(MinutesAgo(62), u"8610", u"咖啡", u"大堂吧", u"1", u"杯", u"32.00"),
    Meal(MinutesAgo(44), u"8406", u"客房用餐", u"客房中心", u"3", u"份", u"96.00", u"送到房间"),
    Service(MinutesAgo(31), u"8705", u"物品租借", u"电熨斗", u"1", u"台", u"10.00"),
    Meal(MinutesAgo(18), u"8317", u"商场商品", u"商场", u"1", u"件", u"45.00"),
};

} // namespace

const QList<DemoPosting>& DemoPostings() {
    return kPostings;
}

} // namespace hotel
