// A customer with 100 quotes among 80,000: opening the card, saving it with all quotes written anew, and
// quoting 200 zones in one go. The bare loop runs what the form itself sends to the engine, word for word.
#include "benchmarks/bench.h"
#include "benchmarks/sent.h"
#include "benchmarks/subjects.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "platform/controls/tab_strip.h"

#include <QAction>
#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

constexpr int MoreZones = 200;
constexpr int MorePerCustomer = 30;
constexpr int Subject = 11;  // the customer that is opened
constexpr int SubjectQuotes = 100;
constexpr int BatchRuns = 7;

QByteArray MoreZone(int index) {
    return "N" + QByteArray::number(index).rightJustified(3, '0');
}

void Quote(BareStatement& quote, int customer, int zone) {
    quote.Bind(1, CustomerCode(customer));
    quote.Bind(2, MoreZone(zone));
    for (int p = 0; p < 19; ++p) quote.Bind(3 + p, 20.5 + (customer + zone * 3 + p) % 50);
    quote.Step();
    quote.Reset();
}

/// Zones and quotes beyond those of the made company.
void AddQuotes(BareEngine& engine) {
    engine.Run("begin immediate");
    QByteArray places = "?,?";
    for (int p = 0; p < 19; ++p) places += ",?";
    BareStatement zone(
        engine.Handle(),
        "insert into M02 (F1,F2,P101,P102,P201,P202,P301,P302,P303,P304,P305,P306,P307,P308,P309,P310,"
        "P311,P312,P313,P314,P315) values (" +
            places + ")");
    for (int z = 0; z < MoreZones; ++z) {
        for (int p = 0; p < 19; ++p) zone.Bind(3 + p, 12.34 + z + p);
        zone.Insert({MoreZone(z), "区域" + QByteArray::number(z)});
    }
    BareStatement quote(engine.Handle(), "insert into M031 values (" + places + ")");
    for (int c = 0; c < Customers; ++c)
        for (int z = 0; z < (c == Subject ? SubjectQuotes - Zones : MorePerCustomer); ++z) Quote(quote, c, z);
    engine.Run("commit");
}

/// The customers' form, driven by the names of its controls.
class CustomerForm {
  public:
    CustomerForm() : form_(TheFrame().ShowChild(u"A03"_s)) { Settle(); }
    ~CustomerForm() {
        form_.Unload();
        Settle();
    }
    CustomerForm(const CustomerForm&) = delete;
    CustomerForm& operator=(const CustomerForm&) = delete;

    template <class Control>
    Control& At(const QString& name) {
        return Found<Control>(form_, name);
    }
    void Command(const QString& name) { Found<QAction>(*form_.MenuBar(), name).trigger(); }
    void Press(const QString& name) {
        At<controls::Button>(name).click();
        Settle();
    }
    void ShowTab(int tab) { At<controls::TabStrip>(u"TabS"_s).SelectItem(tab); }
    void Choose(int customer) {
        auto& list = At<controls::FlexGrid>(u"GD"_s);
        const QString code = QString::fromUtf8(CustomerCode(customer));
        for (int row = 1; row < list.Rows(); ++row)
            if (list.TextMatrix(row, 0) == code) list.SetRow(row);
    }
    /// How many rows the quote grid has; ends the run where they are not as many as meant.
    void Expect(int quotes) {
        const int rows = At<controls::FlexGrid>(u"GdMx"_s).Rows() - 2;
        if (rows == quotes) return;
        std::fprintf(stderr, "%d quotes in the grid, not %d\n", rows, quotes);
        std::exit(2);
    }
    static void Settle() {
        for (int i = 0; i < 4; ++i) QCoreApplication::processEvents();
    }

  private:
    template <class Control>
    static Control& Found(QWidget& root, const QString& name) {
        if (auto* control = root.findChild<Control*>(name)) return *control;
        std::fprintf(stderr, "no control %s\n", qPrintable(name));
        std::exit(2);
    }

    ChildForm& form_;
};

/// The same questions, each field read into a plain text as a card and a grid show it.
void ReadTexts(BareEngine& engine, const std::vector<Sent>& questions) {
    std::vector<QString> texts;
    for (const Sent& question : questions) {
        BareStatement rows(engine.Handle(), question.text);
        while (rows.Step())
            for (int i = 0; i < rows.Columns(); ++i) texts.push_back(rows.Text(i));
    }
    Keep(texts.data());
}

void MeasureOpening(Bench& bench, Office& office, CustomerForm& form) {
    const auto open = [&] { form.ShowTab(2); };
    const auto close = [&] {
        form.ShowTab(1);
        CustomerForm::Settle();
    };
    open();
    form.Expect(SubjectQuotes);
    close();
    const std::vector<Sent> sent = Caught(office.Engine(), open);
    bench.Run({.name = "customer: opening the card, 100 of 80,000 quotes",
               .limit = 1.5,
               .runsInRound = 10,
               .ours = open,
               .bare = [&] { ReadTexts(office.Bare(), sent); },
               .makeOursReady = close});
    close();
}

void MeasureSaving(Bench& bench, Office& office, CustomerForm& form) {
    const auto edit = [&] {
        form.Command(u"Menu_edit"_s);
        CustomerForm::Settle();
    };
    const auto save = [&] { form.Command(u"Menu_save"_s); };
    edit();
    const std::vector<Sent> sent = Caught(office.Engine(), save);
    form.Expect(SubjectQuotes);
    bench.Run({.name = "customer: saving with 100 quotes",
               .limit = 2,
               .runsInRound = 5,
               .ours = save,
               .bare = [&] { RunAgain(office.Bare(), sent); },
               .makeOursReady = edit});
}

void MeasureBatch(Bench& bench, CustomerForm& form) {
    form.Command(u"Menu_Add"_s);
    CustomerForm::Settle();
    form.At<controls::LineBox>(u"TxtHPBM"_s).SetText(u"N"_s);
    double best = std::numeric_limits<double>::infinity();
    for (int run = 0; run < BatchRuns; ++run) {
        form.Press(u"CmdGdMxclear"_s);
        form.Press(u"CmdDownList"_s);
        const auto begin = std::chrono::steady_clock::now();
        form.At<controls::Button>(u"CmdDel"_s).click();
        const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
        best = std::min(best, took.count());
        form.Expect(MoreZones);
        CustomerForm::Settle();
    }
    bench.State("customer: quoting 200 zones at once", best, "ms", 100);
    form.Command(u"Menu_cancel"_s);
}

}  // namespace

void MeasureCustomers(Bench& bench, Office& office) {
    if (!bench.Wanted("customer")) return;
    AddQuotes(office.Bare());
    CustomerForm form;
    form.Choose(Subject);
    MeasureOpening(bench, office, form);
    MeasureSaving(bench, office, form);
    MeasureBatch(bench, form);
}

}  // namespace benchmarks
