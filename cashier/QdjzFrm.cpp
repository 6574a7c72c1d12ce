#include "cashier/QdjzFrm.h"

#include <QLineEdit>

#include "record/literals.h"
#include "record/numbers.h"

namespace hotel {

QdjzFrm::QdjzFrm()
    : PostingScreen(u"QdjzFrm"_s, u"客人记账号综合消费服务签单记账"_s,
                    {{kFoodPosting,
                      u"XfAdd",
                      u"XfDel",
                      u"XfPrint",
                      {},
                      {u"签单记账增加操作", u"签单记账删除操作"},
                      u"消费签单打印操作"}},
                    {}),
      Zhxfe(addTotal(u"Zhxfe"_s, u"总消费额"_s)) {
    addCommands({{u"ExitCmd"_s, u"关闭"_s, [this] { close(); }, Qt::Key_Escape, CommandKind::Plain,
                  u"end"_s}});
}

void QdjzFrm::showTotals() {
    Zhxfe->setText(charges().text());
}

} // namespace hotel
