#include "tests/report/papers.h"

using namespace Qt::StringLiterals;

namespace tests {
namespace {

const QStringList Quote = [] {
    QStringList formulas{u"TO='TO:华兴电子'"_s};
    for (int i = 1; i <= 9; ++i) formulas += u"P%1='段%1'"_s.arg(i);
    return formulas << u"B1='报价不含关税。'"_s << u"B2=''"_s << u"B3='第三行'"_s << u"B4=''"_s << u"B5=''"_s;
}();

const QStringList InvoiceHeads{u"fpdh='发货单号'"_s,  u"fprq='发货日期'"_s,  u"ymhkd='金额(元)'"_s,
                               u"fkhkd='付款(元)'"_s, u"jyhkd='欠款(元)'"_s, u"gong='共：'"_s};

QString Insert(const QString& table, const QString& columns, const QString& values) {
    return u"insert into "_s + table + u" ("_s + columns + u") values ("_s + values + u")"_s;
}

QString Number(int row) {
    return u"KV%1"_s.arg(row, 6, 10, QChar(u'0'));
}

/// The rows of one work table; amounts are 10.50 times the row, so that a sum is known.
QStringList Rows(const QString& layout, int rows) {
    QStringList all;
    double sum = 0;
    for (int r = 1; r <= rows; ++r) {
        const QString n = QString::number(r), amount = QString::number(10.5 * r, 'f', 2), no = Number(r);
        sum += 10.5 * r;
        if (layout == u"prntb01.rpt") {
            all += Insert(u"PRNTB01"_s, u"F1,F2,F3,F4"_s, u"'续重','第 %1 步','%2','0'"_s.arg(n, amount));
        } else if (layout.startsWith(u"prntc01"_s)) {
            all += Insert(u"B01"_s, u"F1,F101,F102,F202,F603,F2031,F2061,F2072,F301,F401,F404,DF"_s,
                          u"'%1','2024-03-14','HY%2','Q1','C1','多伦多','新华','1 Main St','S',2,%3,0"_s.arg(
                              no, n, amount));
            all += Insert(u"PRNTC01"_s, u"F1"_s, u"'%1'"_s.arg(no));
        } else if (layout == u"prntc023.rpt") {
            all += Insert(u"PRNTC023"_s, u"F1,F2,F3,F4,F5,F6"_s,
                          u"'2024-03-14','%1','S','纽约','1.5','%2'"_s.arg(no, amount));
        } else if (layout == u"prntzl1.rpt") {
            all += Insert(u"PRNTC04"_s, u"F1,F2,F3,F4,F5,F6,F7,F8,F9,F10"_s,
                          u"'单位%1','%2','%2','','','','','','','2024-03-14'"_s.arg(n, amount));
        } else if (layout == u"prntzl2.rpt") {
            all += Insert(u"PRNTC04"_s, u"F1,F2,F3,F4,F5,F6,F7"_s,
                          u"'单位%1','021-5555','%2','%2','2024-03-14','40',''"_s.arg(n, amount));
        } else if (layout == u"prntzl3.rpt") {
            all += Insert(u"PRNTC04"_s, u"F1,F2,F3,F4,F5,F6"_s,
                          u"'YS%1','2024-03-14','%2','%2','40','逾期'"_s.arg(no, amount));
        } else if (layout == u"prntc04.rpt") {
            all += Insert(
                u"PRNTC04"_s, u"F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15"_s,
                u"'14','客户%1','%2','S','1.5','纽约','','%3','0','张三','环洋','1.5','%3','1','备注'"_s.arg(
                    QString::number(r / 3), no, amount));
        } else if (layout == u"prntc06.rpt") {
            all += Insert(u"PRNTC04"_s, u"F1,F2,F3,F4,F5,F6,F7,F11,F12"_s,
                          u"'客户%1','0','%2','0','%2','1','1','%2','业务员%3'"_s.arg(
                              n, amount, QString::number(r / 4)));
        } else if (layout == u"prntc05.rpt") {
            all += Insert(u"PRNTC05"_s, u"F1,F2,F3,F4,F5,F6,F7"_s,
                          u"'%1',' 重量:12.5','无人接听','','','',''"_s.arg(no));
        } else if (layout == u"prntscan.rpt") {
            all += Insert(u"PRNTC05"_s, u"F1,F2,F3,F4,F5,F6,F7"_s,
                          u"'09:15:00','%1','新华','环洋','%2','未出货','没有这个速递单'"_s.arg(no, amount));
        } else if (layout == u"prntunrel.rpt") {
            all += Insert(
                u"PRNTC04"_s, u"F1,F2,F3,F4,F5,F6,F7,F8"_s,
                u"'%1','2024-03-14','华兴','新华','环洋','%2','未审核','区域、成本'"_s.arg(no, amount));
        } else if (layout == u"kuanmx.rpt") {
            all += Insert(
                u"Plist"_s, u"F1,F3,F4,F7,F8,F9,F10,V1"_s,
                u"'单位%1','%2','增加应收','','%3','','%3',%4"_s.arg(QString::number(r / 5), no, amount, n));
        } else if (layout == u"kuanhz.rpt") {
            all +=
                Insert(u"PrTA1"_s, u"F1,F3,F4,F5,F6"_s, u"'单位%1','0.00','%2','0.00','%2'"_s.arg(n, amount));
        } else if (layout.startsWith(u"prnTM03"_s)) {
            all += Insert(u"PRNTM03"_s, u"F1,F2,F31,F32,F33,F34,F35,F36,F37,F38,F39"_s,
                          u"'Z%1','一区',%2,1,2,3,4,5,6,7,8"_s.arg(n, amount));
        } else {
            all +=
                Insert(u"PRTB2"_s, u"F0,F1,F3,F2,F6,F7,F8"_s,
                       u"'C%1','华兴','%2','2024-03-14',%3,0,%3"_s.arg(QString::number(r / 5), no, amount));
        }
    }
    const QString total = QString::number(sum, 'f', 2);
    if (layout.startsWith(u"prntc01"_s)) all += Insert(u"PRNTC01"_s, u"F1"_s, u"''"_s);
    if (layout == u"prntc023.rpt") all += Insert(u"PRNTC023"_s, u"F2,F6"_s, u"'','%1'"_s.arg(total));
    if (layout == u"prntc06.rpt") all += Insert(u"PRNTC04"_s, u"F1,F5,F12"_s, u"'','%1',''"_s.arg(total));
    if (layout == u"kuanhz.rpt") all += Insert(u"PrTA1"_s, u"F1,F6"_s, u"'','%1'"_s.arg(total));
    return all;
}

}  // namespace

const QList<Paper>& Papers() {
    static const QList<Paper> papers = {
        {u"kuanhz.rpt"_s,
         {u"Cpt='应收货款总帐'"_s, u"C1='关系单位'"_s, u"C6='期末应收'"_s,
          u"rq='2024-03-01 至 2024-03-15'"_s}},
        {u"kuanmx.rpt"_s,
         {u"Cpt='应收款明细帐'"_s, u"khbm='客户编号：'"_s, u"rq='2024-03-01 - 2024-03-15'"_s}},
        {u"prnTM03.rpt"_s, Quote},
        {u"prnTM032.rpt"_s, Quote},
        {u"prntb01.rpt"_s,
         {u"DH='KV000001'"_s, u"RQ='2024-03-14'"_s, u"KH='C1.华兴电子'"_s, u"QY='Z1.北美'"_s, u"DD='纽约'"_s,
          u"BJ='2024-03-14'"_s}},
        {u"prntc011.rpt"_s, {u"TOWHO='TO:环洋快件  出货明细 '"_s}},
        {u"prntc012.rpt"_s, {}},
        {u"prntc013.rpt"_s, {}},
        {u"prntc023.rpt"_s, {u"RQ='对帐日期:2024-03-01至2024-03-15'"_s, u"KH='华兴电子'"_s}},
        {u"prntc04.rpt"_s, {u"RQ='2024-03-01至2024-03-15月结表'"_s}},
        {u"prntc05.rpt"_s, {}},
        {u"prntc06.rpt"_s, {u"RQ='2024-03-01至2024-03-15毛利表'"_s}},
        {u"prntd3.rpt"_s,
         QStringList{u"myName='甲公司'"_s, u"Cpt='销售帐款统计报表'"_s, u"kh='客户'"_s, u"khmc='名称'"_s} +
             InvoiceHeads},
        {u"prntd4.rpt"_s,
         QStringList{u"Cpt='客户月结单'"_s, u"myName='甲公司'"_s, u"khbm='客户编码： C1   华兴'"_s} +
             InvoiceHeads},
        {u"prntscan.rpt"_s, {u"TJ='已出货 3，未出货 1'"_s}},
        {u"prntunrel.rpt"_s, {u"TJ='最近 7 天，未审核 3 票，未出货 1 票'"_s}},
        {u"prntzl1.rpt"_s, {u"Cpt='应收帐款帐龄分析表'"_s, u"yu='预收'"_s, u"rq='2024-03-15'"_s}},
        {u"prntzl2.rpt"_s, {u"Cpt='逾期应收帐款名单'"_s, u"rq='2024-03-15'"_s, u"ts='30'"_s}},
        {u"prntzl3.rpt"_s,
         {u"dw='华兴电子有限公司'"_s, u"dz='吴中路 1 号'"_s, u"dh='021-5555'"_s, u"rq='2024-03-15'"_s,
          u"ts='30'"_s, u"yq='10.50'"_s}}};
    return papers;
}

void FillWorkTable(const QString& layout, int rows, const std::function<void(const QString&)>& execute) {
    for (const char* table : {"PRNTC01", "PRNTC023", "PRNTC04", "PRNTC05", "PRNTB01", "Plist", "PrTA1",
                              "PRNTM03", "PRTB2", "B01"})
        execute(u"delete from "_s + QString::fromLatin1(table));
    for (const QString& statement : Rows(layout, rows)) execute(statement);
}

}  // namespace tests
