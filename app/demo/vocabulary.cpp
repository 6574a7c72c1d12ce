#include "app/demo/vocabulary.h"

namespace hotel {

namespace {

const NameCharacters kNames = {
    u"王李张刘陈杨赵黄周吴徐孙胡朱高林何郭马罗梁宋郑谢韩唐冯于董程曹袁邓许傅沈曾彭吕苏卢蒋蔡贾丁魏"
    u"薛叶余潘杜戴夏"
    u"钟汪田任姜范方石姚谭廖邹熊金陆郝孔白崔康毛邱秦江史顾侯邵孟龙万段雷钱汤尹黎易常武乔贺赖龚文",
    u"志建国明文永德海晓学家成立春俊宏伟正少景光传继兴",
    u"强军华平勇刚辉斌峰涛民林东生杰波良飞宁远亮松清祥",
    u"秀晓淑丽雅慧佳玉春美雪文静桂婉思海凤月素",
    u"英兰芳萍娟敏玲霞燕梅琳红娜颖洁琴云怡珍蓉",
};

const QList<DemoTown> kTowns = {
    {u"110105", u"北京"}, {u"120101", u"天津"},   {u"130102", u"石家庄"}, {u"140105", u"太原"},
    {u"210102", u"沈阳"}, {u"230103", u"哈尔滨"}, {u"310104", u"上海"},   {u"320106", u"南京"},
    {u"330106", u"杭州"}, {u"340104", u"合肥"},   {u"350203", u"厦门"},   {u"360102", u"南昌"},
    {u"370102", u"济南"}, {u"370202", u"青岛"},   {u"410105", u"郑州"},   {u"420106", u"武汉"},
    {u"430102", u"长沙"}, {u"440305", u"深圳"},   {u"450103", u"南宁"},   {u"500112", u"重庆"},
    {u"510107", u"成都"}, {u"510703", u"绵阳"},   {u"511302", u"南充"},   {u"511402", u"眉山"},
    {u"511502", u"宜宾"}, {u"520103", u"贵阳"},   {u"530102", u"昆明"},   {u"610113", u"西安"},
    {u"620102", u"兰州"}, {u"610104", u"西安"},   {u"510104", u"成都"},   {u"420106", u"武汉"},
};

const QList<DemoForeigner> kForeigners = {
    {u"TANAKA KENJI", u"男", u"日本"},   {u"WEBER ANNA", u"女", u"德国"},
    {u"PARK JIHOON", u"男", u"韩国"},    {u"MORRIS DANIEL", u"男", u"英国"},
    {u"LEFEVRE CLAIRE", u"女", u"法国"}, {u"NGUYEN MINH", u"男", u"越南"},
    {u"KOWALSKI PIOTR", u"男", u"波兰"}, {u"RAMOS LUCIA", u"女", u"西班牙"},
    {u"TAN WEI LING", u"女", u"新加坡"}, {u"IVANOV SERGEI", u"男", u"俄罗斯"},
};

const QList<QStringView> kEmployers = {
    u"长风电缆厂",       u"蓉北机械公司",     u"川渝物资贸易公司", u"远航国际货运公司",
    u"东湖仪表研究所",   u"青衣江水电公司",   u"蓉信软件公司",     u"红叶印务公司",
    u"岭南陶瓷公司",     u"华北轴承销售公司", u"市第三建筑公司",   u"锦江纺织品公司",
    u"海川冷链公司",     u"西部地质勘查院",   u"明远会计师事务所", u"正和律师事务所",
    u"鼎新自动化公司",   u"绿洲园林公司",     u"省广播器材厂",     u"翰墨图书公司",
    u"康宁医药公司",     u"汇通保险公估公司", u"星河广告公司",     u"金穗粮油公司",
    u"铁路第五工程处",   u"南山地产顾问公司", u"九州旅游车船公司", u"青禾乳品公司",
    u"宏图消防工程公司", u"瑞丰种业公司",
};

const QList<SigningCompany> kCompanies = {
    {Sends::Guests,
     {u"蜀江茶业公司", u"岳长春", u"13980770215", u"028-87750215", u"成都市青羊区茶店路8号",
      u"SJCY", u"成都"}},
    {Sends::Guests,
     {u"川北公路勘测院", u"谷正明", u"13981160374", u"0817-2260374", u"南充市顺庆区北湖路15号",
      u"CBGL", u"南充"}},
    {Sends::Guests,
     {u"楚天机电安装公司", u"向远清", u"13971330428", u"027-88430428", u"武汉市武昌区中山路66号",
      u"CTJD", u"武汉"}},
    {Sends::TourGroups,
     {u"金沙国际旅行社", u"钟晓蓉", u"13881920536", u"028-86620536", u"成都市金牛区金沙路3号",
      u"JSGJ", u"成都"}},
    {Sends::TourGroups,
     {u"西岭户外旅行社", u"石建平", u"13880410619", u"028-85510619", u"成都市武侯区西岭街29号",
      u"XLHW", u"成都"}},
    {Sends::TourGroups,
     {u"滇池假日旅行社", u"段玉琴", u"13888250731", u"0871-63350731", u"昆明市五华区翠湖路12号",
      u"DCJR", u"昆明"}},
    {Sends::Conferences,
     {u"锦绣会展策划公司", u"唐雅静", u"13982040842", u"028-84440842", u"成都市锦江区会展路1号",
      u"JXHZ", u"成都"}},
    {Sends::Conferences,
     {u"省职业教育学会", u"丁德华", u"13908150957", u"028-86150957", u"成都市锦江区学苑路40号",
      u"ZYJY", u"成都"}},
};

const QList<DemoArticle> kArticles = {
    {kFoodPosting, 14, u"中餐", u"中餐厅", u"桌", 1, 96, 420},
    {kFoodPosting, 8, u"自助餐", u"西餐厅", u"位", 3, 68, 88},
    {kFoodPosting, 7, u"西餐", u"西餐厅", u"份", 2, 78, 168},
    {kFoodPosting, 6, u"客房用餐", u"客房中心", u"份", 2, 32, 58},
    {kFoodPosting, 6, u"咖啡", u"大堂吧", u"杯", 3, 28, 38},
    {kFoodPosting, 4, u"酒水", u"大堂吧", u"瓶", 2, 38, 188},
    {kFoodPosting, 4, u"歌厅", u"歌厅", u"小时", 3, 80, 120},
    {kFoodPosting, 3, u"足浴", u"足浴中心", u"人次", 2, 88, 128},
    {kFoodPosting, 2, u"棋牌", u"棋牌室", u"小时", 4, 20, 30},
    {kFoodPosting, 3, u"商务服务", u"商务中心", u"页", 40, 1, 2},
    {kFoodPosting, 3, u"商场商品", u"商场", u"件", 2, 15, 160},
    {kFoodPosting, 4, u"停车", u"停车场", u"次", 1, 10, 20},
    {kBroadbandPosting, 8, u"宽带包日", {}, {}, 1, 15, 15},
    {kTelephonePosting, 7, u"市话", u"总机", {}, 12, 2, 3},
    {kTelephonePosting, 11, u"国内长途", u"总机", {}, 25, 6, 7},
    {kTelephonePosting, 3, u"移动电话", u"总机", {}, 15, 6, 6},
    {kServicePosting, 9, u"迷你吧", u"矿泉水", u"瓶", 3, 8, 8},
    {kServicePosting, 6, u"迷你吧", u"啤酒", u"罐", 3, 12, 12},
    {kServicePosting, 5, u"迷你吧", u"方便面", u"盒", 2, 10, 10},
    {kServicePosting, 6, u"洗衣服务", u"衬衣", u"件", 4, 12, 12},
    {kServicePosting, 3, u"洗衣服务", u"西装", u"套", 2, 40, 40},
    {kServicePosting, 2, u"洗衣服务", u"外套", u"件", 2, 28, 28},
    {kServicePosting, 3, u"送餐服务", u"夜宵", u"份", 2, 36, 58},
    {kServicePosting, 1, u"物品赔偿", u"玻璃杯", u"个", 2, 10, 10},
    {kRoomPosting, 2, u"加床费", {}, {}, 1, 60, 80},
};

const QList<DemoCustom> kCustoms = {
    {.status = u"包房",
     .rate = u"前台价",
     .weight = 26,
     .weekendWeight = 18,
     .leastRooms = 1,
     .mostRooms = 1,
     .leastNights = 1,
     .mostNights = 4,
     .leastGuests = 1,
     .mostGuests = 2,
     .reasons = {u"过境中转", u"求医就诊", u"公务旅行", u"探亲访友", u"参加考试"}},
    {.status = u"包房",
     .rate = u"会员价",
     .weight = 14,
     .weekendWeight = 30,
     .leastRooms = 1,
     .mostRooms = 1,
     .leastNights = 1,
     .mostNights = 4,
     .leastGuests = 2,
     .mostGuests = 2,
     .reasons = {u"旅游观光", u"休闲度假", u"探亲访友", u"参加婚宴"}},
    {.status = u"包房",
     .rate = u"协议价",
     .weight = 28,
     .weekendWeight = 8,
     .leastRooms = 1,
     .mostRooms = 1,
     .leastNights = 1,
     .mostNights = 5,
     .leastGuests = 1,
     .mostGuests = 1,
     .reasons = {u"商务洽谈", u"公务旅行", u"学术交流", u"参加展览"},
     .employed = true},
    {.status = u"包房",
     .rate = u"前台价",
     .weight = 5,
     .weekendWeight = 18,
     .leastRooms = 1,
     .mostRooms = 1,
     .leastNights = 1,
     .mostNights = 4,
     .leastGuests = 3,
     .mostGuests = 3,
     .reasons = {u"旅游观光", u"休闲度假"}},
    {.status = u"包房",
     .rate = u"协议价",
     .weight = 12,
     .weekendWeight = 5,
     .leastRooms = 1,
     .mostRooms = 3,
     .leastNights = 2,
     .mostNights = 5,
     .leastGuests = 1,
     .mostGuests = 2,
     .reasons = {u"商务洽谈", u"公务旅行"},
     .signs = true},
    {.status = u"团队",
     .rate = u"团队价",
     .weight = 3,
     .weekendWeight = 5,
     .leastRooms = 5,
     .mostRooms = 10,
     .leastNights = 1,
     .mostNights = 3,
     .leastGuests = 2,
     .mostGuests = 2,
     .reasons = {u"旅游观光"},
     .signs = true,
     .sends = Sends::TourGroups},
    {.status = u"会议",
     .rate = u"协议价",
     .weight = 3,
     .weekendWeight = 1,
     .leastRooms = 3,
     .mostRooms = 8,
     .leastNights = 2,
     .mostNights = 4,
     .leastGuests = 1,
     .mostGuests = 2,
     .reasons = {u"参加会议", u"学术交流"},
     .signs = true,
     .sends = Sends::Conferences},
    {.status = u"散客",
     .rate = u"前台价",
     .weight = 7,
     .weekendWeight = 5,
     .leastRooms = 1,
     .mostRooms = 1,
     .leastNights = 1,
     .mostNights = 5,
     .leastGuests = 1,
     .mostGuests = 1,
     .reasons = {u"教育培训", u"参加考试", u"探亲访友"},
     .price = u"120.00"},
    {.status = u"长包",
     .rate = u"长包价",
     .weight = 1,
     .weekendWeight = 0,
     .leastRooms = 1,
     .mostRooms = 1,
     .leastNights = 12,
     .mostNights = 25,
     .leastGuests = 1,
     .mostGuests = 1,
     .reasons = {u"长期驻留"},
     .employed = true},
    {.status = u"免费",
     .rate = u"前台价",
     .weight = 1,
     .weekendWeight = 1,
     .leastRooms = 1,
     .mostRooms = 1,
     .leastNights = 1,
     .mostNights = 2,
     .leastGuests = 1,
     .mostGuests = 1,
     .reasons = {u"公务旅行"},
     .employed = true,
     .price = u"0.00"},
};

} // namespace

const NameCharacters& DemoNames() {
    return kNames;
}

const QList<DemoTown>& DemoTowns() {
    return kTowns;
}

const QList<DemoForeigner>& DemoForeigners() {
    return kForeigners;
}

const QList<QStringView>& DemoEmployers() {
    return kEmployers;
}

const QList<SigningCompany>& SigningCompanies() {
    return kCompanies;
}

const QList<DemoArticle>& DemoArticles() {
    return kArticles;
}

const QList<DemoCustom>& DemoCustoms() {
    return kCustoms;
}

} // namespace hotel
