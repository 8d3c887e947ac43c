// The payments on delivery notes: what the small window refuses, what it writes, what the list shows.
#include "tests/support/by_keys.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

QStringList Masters() {
    return {
        u"insert into TA2 (F1,F2) VALUES ('C1','华兴')"_s,
        u"insert into TA2 (F1,F2) VALUES ('C2','恒丰')"_s,
        u"insert into TD1 (F1,F2,F3,F9) VALUES ('N1','2024-03-01','C1',100.5)"_s,
        u"insert into TD1 (F1,F2,F3,F9,F91) VALUES ('N2','2024-03-02','C2',80,80)"_s,
        u"insert into TD2 (F1,F2,F3,F4,F5) VALUES ('C2','N2','2024-03-05 09:00:00',60,50)"_s,
        u"insert into TD2 (F1,F2,F3,F4,F5) VALUES ('C9','N9','2024-03-04',50,0)"_s,
        u"insert into TD2 (F1,F2,F3,F4,F5) VALUES ('C1','N8','2024-03-06',40,null)"_s,
    };
}

const QString First = u"C2|恒丰|N2|80.00|2024-03-05|60.00|50.00"_s;
const QString Second = u"C9||N9||2024-03-04|50.00|0.00"_s;  // neither customer nor note is known any more
const QString Third = u"C1|华兴|N8||2024-03-06|40.00|"_s;

class PaymentList : public testing::Test {
  protected:
    explicit PaymentList(const QStringList& masters = Masters()) : desk(masters) {
        sys::Guarded([&] { desk.Frame().ShowChild(u"D2"_s); });
        Settle();
    }
    /// Opens the small window by its key.
    static void InEntry(const std::function<void(QWidget& form)>& drive) {
        ModalScript modals;
        modals.Next(u"D201"_s, drive);
        AltKey(u'A');
    }
    /// What an operator types, Enter behind each; then the button.
    static void TypePayment(const QString& customer, const QString& note, const QString& amount) {
        for (const QString& text : {customer, note}) {
            TypeOver(text);
            Press(Qt::Key_Return);
        }
        Press(Qt::Key_Return);  // the date
        TypeOver(amount);
        Press(Qt::Key_Return);
        EXPECT_EQ(FocusName(), u"Command1"_s);
        Press(Qt::Key_Return);
    }
    QStringList Stored() { return desk.Rows(u"select F1,F2,F3,F4,F5 from TD2"_s); }
    QString PaidOn(const QString& note) {
        return desk.Rows(u"select F91 from TD1 where F1='"_s + note + u"'"_s).join(u' ');
    }

    Program desk;
};

TEST_F(PaymentList, IsSortedByEachEntryOfItsMenu) {
    EXPECT_EQ(desk.Lines(), (QStringList{First, Second, Third}));
    EXPECT_EQ(desk.Status(), u"客户付款记录：共 3 条记录 当前为第 1 条"_s);
    const struct {
        char16_t key;
        QStringList lines;
    } sorts[] = {{u'1', {Second, First, Third}},
                 {u'2', {Third, First, Second}},
                 {u'3', {Third, Second, First}},
                 {u'4', {First, Third, Second}}};
    for (const auto& sort : sorts) {
        AltKey(u'S');
        AltKey(sort.key);
        EXPECT_EQ(desk.Lines(), sort.lines) << int(sort.key);
    }
    EXPECT_EQ(FocusName(), u"GD"_s);
    Press(Qt::Key_Down);
    EXPECT_EQ(desk.Status(), u"客户付款记录：共 3 条记录 当前为第 2 条"_s);
}

TEST_F(PaymentList, TheEntryRefusesInItsOrder) {
    const struct {
        QString customer, note, amount, refusal, focus;
    } rows[] = {
        {u" "_s, u""_s, u""_s, u"客户不能为空!"_s, u"CmbKH"_s},
        {u"华兴"_s, u""_s, u""_s, u"客户编号输入错误!"_s, u"CmbKH"_s},
        {u"C1.随便"_s, u" "_s, u""_s, u"发货单号不能为空！"_s, u"Txt(0)"_s},
        {u"C1"_s, u"N7"_s, u""_s, u"无效的发货单号!"_s, u"Txt(0)"_s},
        {u"C1"_s, u"N2"_s, u""_s, u"发货单号与客户不对应!"_s, u"Txt(0)"_s},
        {u"C2.恒丰"_s, u"N2"_s, u"x"_s, u"付款金额不能为0！"_s, u"Txt(1)"_s},
        {u"C2"_s, u"N2"_s, u"0.01"_s, u"指定的发货单号已经清结，不需要继续付款!"_s, u"Txt(0)"_s},
    };
    const QStringList before = Stored();
    InEntry([&](QWidget& form) {
        EXPECT_EQ(NotReachedByTab(form), QStringList());
        EXPECT_EQ(WithoutNameOrRole(form), QStringList());
        for (const auto& row : rows) {
            Find<controls::ComboBox>(form, u"CmbKH"_s).SetFocus();
            Settle();
            desk.script.Box(row.refusal, Title);
            TypePayment(row.customer, row.note, row.amount);
            EXPECT_TRUE(form.isVisible());
            EXPECT_EQ(FocusName(), row.focus);
        }
        Click(Find<controls::Button>(form, u"Command2"_s));
    });
    EXPECT_EQ(Stored(), before);
    EXPECT_EQ(PaidOn(u"N2"_s), u"80"_s);
}

TEST_F(PaymentList, APaymentMayExceedWhatIsOpenAndIsTheLastLine) {
    InEntry([&](QWidget&) { TypePayment(u"C1.华兴"_s, u" N1 "_s, u"60.25元"_s); });
    EXPECT_EQ(PaidOn(u"N1"_s), u"60.25"_s);
    EXPECT_EQ(Stored().last(), u"C1|N1|2024-03-15|60.25|40.25"_s);
    EXPECT_EQ(desk.Lines().last(), u"C1|华兴|N1|100.50|2024-03-15|60.25|40.25"_s);
    EXPECT_EQ(desk.Status(), u"客户付款记录：共 4 条记录 当前为第 4 条"_s);
    InEntry([&](QWidget& form) {
        Find<controls::DTPicker>(form, u"DTP"_s).SetValue(QDate(2024, 3, 1));
        TypePayment(u"C1"_s, u"n1"_s, u"50"_s);
    });
    EXPECT_EQ(PaidOn(u"N1"_s), u"110.25"_s);
    EXPECT_EQ(Stored().last(), u"C1|n1|2024-03-01|50|-9.75"_s);
    EXPECT_EQ(desk.Lines().last(), u"C1|华兴|n1|100.50|2024-03-01|50.00|-9.75"_s);
    // What is above 0 before counts: now nothing is open any more, and a refund is refused too.
    InEntry([&](QWidget& form) {
        desk.script.Box(u"指定的发货单号已经清结，不需要继续付款!"_s, Title);
        TypePayment(u"C1"_s, u"N1"_s, u"-9.75"_s);
        Click(Find<controls::Button>(form, u"Command2"_s));
    });
    EXPECT_EQ(PaidOn(u"N1"_s), u"110.25"_s);
}

TEST_F(PaymentList, ARefundIsANegativePayment) {
    InEntry([&](QWidget&) { TypePayment(u"C1"_s, u"N1"_s, u"-5"_s); });
    EXPECT_EQ(Stored().last(), u"C1|N1|2024-03-15|-5|105.5"_s);
}

class EmptyPaymentList : public PaymentList {
  protected:
    EmptyPaymentList() : PaymentList(Masters().mid(0, 3)) {}
};

TEST_F(EmptyPaymentList, LosesItsBlankLineToTheFirstPayment) {
    EXPECT_EQ(desk.Status(), u"无信息"_s);
    EXPECT_EQ(desk.Grid().Rows(), 2);
    EXPECT_EQ(NotReachedByTab(*desk.Frame().Front()), QStringList());
    EXPECT_EQ(WithoutNameOrRole(desk.Frame()), QStringList());
    InEntry([&](QWidget&) { TypePayment(u"C1"_s, u"N1"_s, u"100.5"_s); });
    EXPECT_EQ(desk.Lines(), QStringList{u"C1|华兴|N1|100.50|2024-03-15|100.50|0.00"_s});
    EXPECT_EQ(desk.Status(), u"客户付款记录：共 1 条记录 当前为第 1 条"_s);
    AltKey(u'R');
    EXPECT_EQ(desk.Frame().Front(), nullptr);
}

}  // namespace
}  // namespace tests
