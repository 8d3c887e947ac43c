#include "platform/controls/look.h"

#include "platform/controls/focus_tracker.h"
#include "platform/controls/windows.h"

#include <QDir>
#include <QFile>
#include <QFont>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QTranslator>

using namespace Qt::StringLiterals;

/// The pictures are resources of a static library, so they are initialised explicitly; otherwise the linker
/// drops them. The toolkit's macro requires the global namespace.
static void InitPictures() {
    Q_INIT_RESOURCE(look);
}

namespace controls {
namespace {

void SetFont(QApplication& app) {
    QFont font(u"Noto Sans CJK SC"_s);
    font.setPixelSize(13);
    font.setHintingPreference(QFont::PreferVerticalHinting);
    app.setFont(font);
}

void SetColors(QApplication& app) {
    QPalette palette;
    const std::pair<QPalette::ColorRole, QLatin1StringView> colors[] = {
        {QPalette::Window, "#EFF2F5"_L1},         {QPalette::Base, "#FFFFFF"_L1},
        {QPalette::AlternateBase, "#F5F8FA"_L1},  {QPalette::Text, "#1B2733"_L1},
        {QPalette::WindowText, "#1B2733"_L1},     {QPalette::ButtonText, "#1B2733"_L1},
        {QPalette::Button, "#FFFFFF"_L1},         {QPalette::Highlight, "#0B6B83"_L1},
        {QPalette::PlaceholderText, "#52606D"_L1}};
    for (const auto& [role, color] : colors) palette.setColor(role, QColor(color));
    app.setPalette(palette);
}

/// Texts that the toolkit's Chinese translation lacks or words badly.
class MoreWords : public QTranslator {
  public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override {
        struct Word {
            const char* context;
            const char* source;
            QString text;
        };
        static const Word words[] = {
            {"QAbstractFileIconProvider", "Folder", u"文件夹"_s},
            {"QAbstractFileIconProvider", "%1 File", u"%1 文件"_s},
            {"QAbstractFileIconProvider", "File", u"文件"_s},
            {"QAbstractFileIconProvider", "Drive", u"磁盘"_s},
            {"QFileSystemModel", "Size", u"大小"_s},
        };
        for (const Word& word : words)
            if (qstrcmp(context, word.context) == 0 && qstrcmp(source, word.source) == 0) return word.text;
        return QString();
    }
};

/// The toolkit's own texts are Chinese in every locale.
void SetLanguage(QApplication& app) {
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    auto* translator = new QTranslator(&app);
    if (translator->load(u"qtbase_zh_CN"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        app.installTranslator(translator);
    app.installTranslator(new MoreWords(&app));
}

}  // namespace

void DressApplication(QApplication& app) {
    InitPictures();
    app.setStyle(u"Fusion"_s);
    SetFont(app);
    SetColors(app);
    SetLanguage(app);
    QDir::addSearchPath(u"look"_s, u":/look"_s);
    QFile sheet(u"look:style.qss"_s);
    if (sheet.open(QIODevice::ReadOnly)) app.setStyleSheet(QString::fromUtf8(sheet.readAll()));
    FocusTracker::Get();
    InstallWindows();
}

QIcon LookIcon(const QString& name) {
    return QIcon(u"look:icons/"_s + name + u".svg"_s);
}

}  // namespace controls
