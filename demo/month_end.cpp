#include "demo/month_end.h"

#include "app/main_window.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace demo {
namespace {

const QString kTitle = u"提示"_s;

/// The first customer stays out.
void PlayBatchStatements(Operator& op, const QString& folder) {
    op.Do(u"移去上次的对帐单"_s, [folder] {
        QDir(folder).removeRecursively();
        QDir().mkpath(folder);
    });
    op.Press(Qt::Key_K, Qt::ControlModifier);
    op.Type(u"pldzd"_s);
    op.Press(Qt::Key_Return);
    op.Expect(u"窗体 批量对帐单"_s,
              [] { return TheFrame().Front() && TheFrame().Front()->objectName() == u"BatchStatements"; });
    op.Type(u"20241101"_s);
    op.EnterTo(u"Cmd"_s);
    op.Press(Qt::Key_Return);
    op.TabTo(u"GD"_s);
    op.Press(Qt::Key_Space);
    op.ExpectStatus(u"共 13 个客户 已选 12 个"_s);
    op.TabTo(u"Txt(0)"_s);
    op.TypeOver(folder);
    op.Picture(u"batch-statements"_s, u"批量对帐单：选择客户和文件夹"_s);
    op.TabTo(u"Cmd(1)"_s);
    op.Press(Qt::Key_Return);
    op.WaitForBox();
    op.ExpectBox(u"已生成 12 个客户的对帐单。\r汇总表：对帐单汇总_2024-11-01至2024-11-25.xls"_s, kTitle);
    op.Expect(u"二十五个文件"_s, [folder] { return QDir(folder).entryList(QDir::Files).size() == 25; });
    op.Picture(u"batch-statements-done"_s, u"批量对帐单：每个客户的重量、运费和文件"_s);
    op.Command(u"R"_s);
}

}  // namespace

void PlayMonthEnd(Operator& op, const QString& folder) {
    PlayBatchStatements(op, folder + u"/对帐单"_s);
}

}  // namespace demo
