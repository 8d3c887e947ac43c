#include "tests/reports/report_desk.h"

#include "reports/printing.h"
#include "schema/data_files.h"

#include <QFileInfo>

#include <algorithm>

namespace tests {

ReportDesk::ReportDesk(const QStringList& masters, const OpenWith& with) : Program(masters, u"001"_s, with) {
    for (const QString& layout : schema::LayoutFiles()) schema::MakeLayout(AppFolder + layout);
}

void ReportDesk::Refresh(const QString& choice, QDate from, QDate to) {
    const auto set = [&](const QString& picker, QDate date) {
        if (date.isValid()) At<controls::DTPicker>(picker).SetValue(date);
    };
    if (Frame().Front()->findChild<QWidget*>(u"Cmb"_s)) {
        Enter(u"Cmb"_s);
        TypeOver(choice);
    }
    const bool oneDay = Frame().Front()->findChild<QWidget*>(u"DTP"_s);
    set(oneDay ? u"DTP"_s : u"DTP(0)"_s, from);
    if (!oneDay) set(u"DTP(1)"_s, to);
    GoTo(u"Cmd"_s);
    Press(Qt::Key_Return);
}

void ReportDesk::PrintList(int entry) {
    AltKey(u'P');
    for (int i = 0; i < entry; ++i) Press(Qt::Key_Down);
    if (entry >= 0) Press(Qt::Key_Return);
}

QStringList ReportDesk::Formulas() {
    auto* form = dynamic_cast<Prnt*>(Frame().Front());
    return form ? form->Cry->Formulas.values() : QStringList{u"no preview"_s};
}

QString ReportDesk::Layout() {
    auto* form = dynamic_cast<Prnt*>(Frame().Front());
    return form ? QFileInfo(form->Cry->ReportFileName).fileName() : QString();
}

QStringList ReportDesk::PdfLines() {
    const QString path = AppFolder + u"read.pdf"_s;
    QFile::remove(path);
    script.File(u"另存为 PDF"_s, path);
    Press(Qt::Key_S, Qt::ControlModifier);
    return PdfLinesOf(path);
}

QStringList PdfLinesOf(const QString& path) {
    constexpr double sameLine = 3;  // points between the middles of two words
    QList<PdfWord> words = ReadPdf(path);
    const auto middle = [](const PdfWord& word) { return (word.top + word.bottom) / 2; };
    std::ranges::stable_sort(words, {},
                             [&](const PdfWord& word) { return std::pair(word.page, middle(word)); });
    QStringList lines;
    for (auto first = words.begin(); first != words.end();) {
        const auto next = std::find_if(first, words.end(), [&](const PdfWord& word) {
            return word.page != first->page || middle(word) - middle(*first) > sameLine;
        });
        std::sort(first, next, [](const auto& a, const auto& b) { return a.left < b.left; });
        QStringList line;
        for (auto word = first; word != next; ++word) line += word->text;
        if (first->page > (first == words.begin() ? 0 : (first - 1)->page)) lines += u"--"_s;
        lines += line.join(u' ');
        first = next;
    }
    return lines;
}

testing::AssertionResult ReportDesk::Contains(const QStringList& lines, const QString& text) {
    if (std::ranges::any_of(lines, [&](const QString& line) { return line.contains(text); }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "no " << text.toStdString() << " in\n"
                                       << lines.join(u'\n').toStdString();
}

}  // namespace tests
