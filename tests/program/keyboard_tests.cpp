// Every form of the menu table and of the command palette is visited by keys, in every state that its
// commands bring it to. A form that is added to the registry is visited by itself.
#include "app/main_menu.h"
#include "app/session.h"
#include "platform/controls/modal_form.h"
#include "schema/data_files.h"
#include "tests/support/by_keys.h"
#include "tests/support/program.h"
#include "tests/waybills/waybill_company.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>
#include <gtest/gtest.h>

void PrintTo(const MenuRow& row, std::ostream* out) {
    *out << row.name.toString().toStdString();
}

namespace tests {
namespace {

QStringList Masters() {
    return WaybillMasters() +
           QStringList{
               u"insert into M030 (F1,F2) VALUES ('孙丽萍','')"_s,
               u"insert into B01 (F1,F101,F203,F603,F604) VALUES ('KV1','2024-03-14','Z1','C1','未审核')"_s};
}

std::string Text(const QStringList& lines) {
    return lines.join(u", "_s).toStdString();
}

/// A combo of items only shows the longest of them.
bool ShowsEightDigits(const QLineEdit& box) {
    if (box.isReadOnly() && qobject_cast<QComboBox*>(box.parent())) return true;
    QStyleOptionFrame option;
    option.initFrom(&box);
    option.lineWidth = box.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &box);
    const int inside = box.style()->subElementRect(QStyle::SE_LineEditContents, &option, &box).width();
    constexpr int textMargins = 4;  // the toolkit's own
    return inside - textMargins >=
           box.fontMetrics().horizontalAdvance(QString(qMin(8, box.maxLength()), u'0'));
}

bool Cut(const QLabel& caption) {
    if (caption.width() < caption.sizeHint().width()) return true;
    const auto boxes = caption.parentWidget()->findChildren<QLineEdit*>(Qt::FindDirectChildrenOnly);
    return std::ranges::any_of(boxes, [&](const QLineEdit* box) {
        return box->isVisible() && box->geometry().intersects(caption.geometry());
    });
}

/// Boxes that show fewer than eight digits, captions that are cut or lie under a text box.
QStringList TooNarrow(const QWidget& form) {
    QStringList names;
    for (const auto* box : form.findChildren<QLineEdit*>())
        if (box->isVisible() && !ShowsEightDigits(*box))
            names << box->parent()->objectName() + u'/' + box->objectName();
    for (const auto* label : form.findChildren<QLabel*>())
        if (label->isVisible() && label->property("role") == u"caption"_s && Cut(*label))
            names << label->text();
    return names;
}

bool IsOfPalette(const MenuRow& row) {
    return std::ranges::any_of(PaletteRows(),
                               [&](const PaletteRow& own) { return own.row.name == row.name; });
}

/// A tour that begins at one row of the menu. Whatever is asked on the way is declined; each modal form that
/// comes is looked at and left.
class Tour {
  public:
    explicit Tour(const MenuRow& row) : row_(row), program_(Masters()) {
        for (const QString& layout : schema::LayoutFiles()) schema::MakeLayout(AppFolder + layout);
        auto& seams = sys::seams();
        seams.showBox = [](const sys::BoxRequest& request) {
            return request.buttons == sys::BoxButtons::YesNo ? sys::BoxAnswer::No : sys::BoxAnswer::Ok;
        };
        seams.askFile = [](const sys::FileRequest&) { return QString(); };
        seams.startProgram = [](const QString&) { return true; };
        seams.openAddress = [](const QString&) {};
        seams.leave = [this](int status) {
            ended_ = status;
            throw sys::ProgramEnded{status};
        };
        before_ = controls::ModalForm::Driver();
        controls::ModalForm::Driver() = [this](controls::ModalForm& form) { VisitModal(form); };
    }
    ~Tour() { controls::ModalForm::Driver() = before_; }

    bool IsImplemented() { return program_.Frame().MenuItem(row_.name.toString())->isEnabled(); }

    void Take() {
        EXPECT_EQ(Text(WithoutNameOrRole(program_.Frame())), "");
        const int modals = modals_;
        Begin();
        if (ChildForm* form = program_.Frame().Front()) VisitChild(*form);
        if (row_.opens == Opens::Child) {
            EXPECT_GT(children_, 0);
        }
        if (row_.opens == Opens::Modal) {
            EXPECT_GT(modals_, modals);
        }
        EXPECT_EQ(ended_, 0) << "the program has reported an error";
    }

  private:
    void Begin() {
        if (IsOfPalette(row_)) {
            Press(Qt::Key_K, Qt::ControlModifier);
            Type(row_.caption.toString());
            return Press(Qt::Key_Return);
        }
        auto& bar = *qobject_cast<QMenuBar*>(program_.Frame().MenuItem(u"Menu_b"_s)->parent());
        EXPECT_TRUE(RunByKeys(bar, row_.name.toString()));
    }

    static void Look(QWidget& form, const QString& where, bool browsing = false) {
        EXPECT_EQ(Text(NotReachedByTab(form, browsing)), "") << where.toStdString();
        EXPECT_EQ(Text(WithoutNameOrRole(*form.window())), "") << where.toStdString();
        QWidget& window = *form.window();
        const QSize before = window.size();
        if (&window != &form) {  // a screen of 1024x700, less what a window manager takes
            window.resize(1022, 678);
            Settle();
        }
        EXPECT_EQ(Text(TooNarrow(form)), "") << where.toStdString();
        window.resize(before);
        Settle();
    }

    void VisitModal(controls::ModalForm& form) {
        ++modals_;
        Settle();
        const QString name = form.objectName();
        Look(form, name);
        EXPECT_TRUE(LeaveByKeys(form)) << name.toStdString();
    }

    void VisitChild(ChildForm& form) {
        ++children_;
        Look(form, u"list"_s, true);
        const QStringList commands = form.HasMenuBar() ? CommandsOf(*form.MenuBar()) : QStringList();
        EXPECT_FALSE(commands.isEmpty());
        const QString name = form.objectName();
        for (const QString& command : commands) {
            if (!program_.Frame().Front()) Begin();
            Run(command);
            if (EditInProgress) VisitEdit(command, commands);
            // A preview has opened over the form, or another form with one of its records.
            if (ChildForm* front = program_.Frame().Front(); front && front->objectName() != name) {
                EXPECT_TRUE(RunByKeys(*front->MenuBar(), CommandsOf(*front->MenuBar()).last()));
            }
        }
        EXPECT_EQ(program_.Frame().Front(), nullptr) << "no key closes the form";
    }

    /// A command that can be used is run by its key.
    void Run(const QString& command) {
        QMenuBar& bar = *program_.Frame().Front()->MenuBar();
        if (!bar.findChild<QAction*>(command)->isEnabled()) return;
        EXPECT_TRUE(RunByKeys(bar, command)) << command.toStdString();
    }

    /// All commands of the state, which is entered again when one of them has left it.
    void VisitEdit(const QString& entry, const QStringList& commands) {
        ChildForm& form = *program_.Frame().Front();
        Look(form, entry);
        for (const QString& command : commands) {
            if (!EditInProgress) Run(entry);
            Run(command);
        }
        for (const QString& command : commands)
            if (EditInProgress) Run(command);
        EXPECT_FALSE(EditInProgress) << "no key leaves " << entry.toStdString();
        Look(form, u"card"_s, true);
    }

    const MenuRow& row_;
    Program program_;
    std::function<void(controls::ModalForm&)> before_;
    int children_ = 0;
    int modals_ = 0;
    int ended_ = 0;
};

class Menus : public testing::TestWithParam<MenuRow> {};

TEST_P(Menus, AreUsedWithoutAMouseAndReadOut) {
    Tour tour(GetParam());
    ASSERT_TRUE(tour.IsImplemented());
    tour.Take();
}

std::vector<MenuRow> Commands() {
    std::vector<MenuRow> rows;
    for (const MenuRow& row : MenuRows())
        if (row.opens != Opens::Nothing) rows.push_back(row);
    for (const PaletteRow& own : PaletteRows()) rows.push_back(own.row);
    return rows;
}

INSTANTIATE_TEST_SUITE_P(Program, Menus, testing::ValuesIn(Commands()),
                         [](const auto& row) { return row.param.name.toString().toStdString(); });

}  // namespace
}  // namespace tests
