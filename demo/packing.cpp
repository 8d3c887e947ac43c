#include "demo/packing.h"

#include "app/main_window.h"
#include "demo/reports.h"
#include "platform/controls/box.h"

using namespace Qt::StringLiterals;

namespace demo {
namespace {

const QString kMarks =
    u"select F1,F604 from B01 where F1 in ('YL24111802','YL24111804','YL24112103') order by F1"_s;

void OpenByPalette(Operator& op, const QString& letters, const QString& form) {
    op.Press(Qt::Key_K, Qt::ControlModifier);
    op.Type(letters);
    op.Press(Qt::Key_Return);
    op.Expect(u"窗体 "_s + form,
              [form] { return TheFrame().Front() && TheFrame().Front()->objectName() == form; });
}

void PlayUnreleased(Operator& op) {
    OpenByPalette(op, u"wch"_s, u"Unreleased"_s);
    op.ExpectStatus(u"未出货、未审核：共 20 条记录 当前为第 1 条"_s);
    op.Picture(u"unreleased"_s, u"未出货、未审核：最近七天，最早的在前"_s);
    op.Press(Qt::Key_Return);
    op.Expect(u"速递单 YL24111802"_s, [] {
        const auto* number = TheFrame().Front()->findChild<controls::LineBox*>(u"Txt(0)"_s);
        return TheFrame().Front()->objectName() == u"B01" && number->Text() == u"YL24111802";
    });
    op.Command(u"R"_s);
    op.Command(u"R"_s);
}

void PlayScanner(Operator& op, const QString& folder) {
    OpenByPalette(op, u"smch"_s, u"ScanRelease"_s);
    for (const auto& number :
         {u"YL24111802"_s, u"yl24111804"_s, u"YL24112101"_s, u"YL24111804"_s, u"KV9"_s, u"YL24112103"_s}) {
        op.Type(number);
        op.Press(Qt::Key_Return);
        if (number == u"KV9") op.Picture(u"scan-refused"_s, u"扫描出货：没有这个单号，红色并响一声"_s);
    }
    op.ExpectRows(kMarks, {u"YL24111802|管理员"_s, u"YL24111804|管理员"_s, u"YL24112103|管理员"_s});
    op.ExpectStatus(u"扫描出货：共 6 次扫描 已出货 3 票"_s);
    op.Picture(u"scan"_s, u"扫描出货：结果和原因"_s);
    for (const int entry : {0, 3}) {
        op.Command(u"P"_s);
        for (int down = 0; down < entry; ++down) op.Press(Qt::Key_Down);
        op.Press(Qt::Key_Return);
        const QString paper = entry == 0 ? u"扫描出货明细"_s : u"扫描清单"_s;
        SavePaper(op, folder + u'/' + paper + u".pdf"_s, u"scan"_s, paper);
    }
    op.Command(u"R"_s);
}

/// It is noticed when its text box is left, and not after the whole card.
void PlayNumberInUse(Operator& op) {
    op.Command(u"B"_s);
    op.Command(u"A"_s);
    op.EnterTo(u"Txt(0)"_s);
    op.Type(u"YL24111802"_s);
    op.Press(Qt::Key_Return);
    op.ExpectStatus(u"[YL24111802]已经使用了YL24111802这个速递单号，请重新设置!"_s);
    op.Picture(u"waybill-number-in-use"_s, u"速递单：单号已存在，离开时即提示"_s);
    op.Command(u"C"_s);
    op.Command(u"R"_s);
}

}  // namespace

void PlayPacking(Operator& op, const QString& folder) {
    PlayUnreleased(op);
    PlayScanner(op, folder);
    PlayNumberInUse(op);
}

}  // namespace demo
