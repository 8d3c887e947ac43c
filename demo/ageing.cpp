#include "demo/ageing.h"

#include "app/main_window.h"
#include "demo/reports.h"

using namespace Qt::StringLiterals;

namespace demo {
namespace {

void PrintPaper(Operator& op, int entry, const QString& folder, const QString& caption) {
    op.Command(u"P"_s);
    for (int down = 0; down < entry; ++down) op.Press(Qt::Key_Down);
    op.Press(Qt::Key_Return);
    SavePaper(op, folder + u'/' + caption + u".pdf"_s, u"ageing"_s, caption);
}

}  // namespace

void PlayAgeing(Operator& op, const QString& folder) {
    op.Press(Qt::Key_K, Qt::ControlModifier);
    op.Type(u"zlfx"_s);
    op.Press(Qt::Key_Return);
    op.Expect(u"窗体 帐龄分析"_s,
              [] { return TheFrame().Front() && TheFrame().Front()->objectName() == u"Ageing"; });
    op.ExpectStatus(u"帐龄分析：共 13 条记录 当前为第 1 条"_s);
    op.Press(Qt::Key_Down);
    op.Picture(u"ageing"_s, u"帐龄分析：应收帐款按天数分列，各列与差额之和等于余额"_s);
    PrintPaper(op, 0, folder, u"帐龄分析表"_s);
    op.TabTo(u"Txt(0)"_s);
    op.TypeOver(u"45"_s);
    op.EnterTo(u"Chk(0)"_s);
    op.Press(Qt::Key_Space);
    op.EnterTo(u"Cmd"_s);
    op.Press(Qt::Key_Return);
    op.ExpectStatus(u"帐龄分析：共 2 条记录 当前为第 1 条"_s);
    op.Picture(u"ageing-overdue"_s, u"帐龄分析：只看逾期 45 天以上的单位"_s);
    PrintPaper(op, 1, folder, u"逾期名单"_s);
    PrintPaper(op, 2, folder, u"催款单"_s);
    op.Command(u"R"_s);
}

}  // namespace demo
