#include "tests/support/script.h"

#include "platform/system/guard.h"

#include <gtest/gtest.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace tests {

Script::Script() : before_(sys::seams()), now_(QDate(2024, 3, 15), QTime(10, 0)), locale_(u"zh_CN"_s) {
    sys::ClearEnd();
    auto& seams = sys::seams();
    seams.showBox = [this](const sys::BoxRequest& request) {
        lastBox_ = request;
        const auto step = Take(u"box"_s, request.title + u" / "_s + request.text + u' ' + request.detail);
        const bool question = request.buttons != sys::BoxButtons::Ok;
        const bool yesNo = request.buttons == sys::BoxButtons::YesNo;
        const auto no = yesNo ? sys::BoxAnswer::No : sys::BoxAnswer::Cancel;
        if (!step) return question ? no : sys::BoxAnswer::Ok;
        if (step->whole) {
            EXPECT_EQ(request.text.toStdString(), step->text.toStdString());
            EXPECT_EQ(request.title.toStdString(), step->title.toStdString());
        } else {
            const QString all = request.text + u'\n' + request.detail;
            EXPECT_TRUE(all.contains(step->text)) << "in: " << all.toStdString();
        }
        EXPECT_EQ(request.icon, step->icon.value_or(request.icon)) << request.text.toStdString();
        EXPECT_EQ(question, !step->answer.isEmpty()) << request.text.toStdString();
        if (!question) return sys::BoxAnswer::Ok;
        if (step->answer != u"yes") return no;
        return yesNo ? sys::BoxAnswer::Yes : sys::BoxAnswer::Ok;
    };
    seams.askFile = [this](const sys::FileRequest& request) {
        const auto step = Take(u"file"_s, request.title);
        if (!step) return QString();
        EXPECT_EQ(request.title.toStdString(), step->title.toStdString());
        return step->answer;
    };
    seams.now = [this] { return now_; };
    seams.localeName = [this] { return locale_; };
    seams.startProgram = [this](const QString& path) {
        const auto step = Take(u"start"_s, path);
        if (step) {
            EXPECT_EQ(path.toStdString(), step->text.toStdString());
        }
        return step && step->status == 1;
    };
    seams.openAddress = [this](const QString& address) {
        const auto step = Take(u"address"_s, address);
        if (step) {
            EXPECT_EQ(address.toStdString(), step->text.toStdString());
        }
    };
    seams.switchInputMethod = [this] { ++inputMethodSwitches_; };
    seams.readSetting = [this](const QString& entry) { return settings_.value(entry); };
    seams.writeSetting = [this](const QString& entry, const QString& value) { settings_[entry] = value; };
    seams.leave = [this](int status) {
        const auto step = Take(u"end"_s, QString::number(status));
        if (step) {
            EXPECT_EQ(status, step->status);
        }
        throw sys::ProgramEnded{status};
    };
}

Script::~Script() {
    for (const Step& step : steps_)
        ADD_FAILURE() << "never came: " << step.kind.toStdString() << " " << step.title.toStdString() << " "
                      << step.text.toStdString();
    sys::seams() = std::move(before_);
    sys::ClearEnd();
}

void Script::Box(const QString& text, const QString& title, sys::BoxIcon icon) {
    steps_.push_back({.kind = u"box"_s, .text = text, .title = title, .icon = icon});
}

void Script::Question(const QString& text, const QString& title, bool yes, sys::BoxIcon icon) {
    steps_.push_back(
        {.kind = u"box"_s, .text = text, .title = title, .icon = icon, .answer = yes ? u"yes"_s : u"no"_s});
}

void Script::BoxContaining(const QString& text) {
    steps_.push_back({.kind = u"box"_s, .text = text, .whole = false});
}

void Script::File(const QString& title, const QString& answer) {
    steps_.push_back({.kind = u"file"_s, .title = title, .answer = answer});
}

void Script::End(int status) {
    steps_.push_back({.kind = u"end"_s, .status = status});
}

void Script::Start(const QString& path, bool works) {
    steps_.push_back({.kind = u"start"_s, .text = path, .status = works ? 1 : 0});
}

void Script::Address(const QString& address) {
    steps_.push_back({.kind = u"address"_s, .text = address});
}

std::optional<Script::Step> Script::Take(const QString& kind, const QString& what) {
    if (steps_.empty() || steps_.front().kind != kind) {
        ADD_FAILURE() << "unexpected " << kind.toStdString() << ": " << what.toStdString();
        return std::nullopt;
    }
    Step step = steps_.front();
    steps_.pop_front();
    return step;
}

}  // namespace tests
