#include "demo/index_page.h"

#include "app/product.h"
#include "demo/sample_masters.h"

using namespace Qt::StringLiterals;

namespace demo {
namespace {

const QString kHead =
    uR"(<!DOCTYPE html>
<html lang="zh-CN">
<head>
<meta charset="utf-8">
<title>%1：演示</title>
<style>
body { margin: 0 auto; max-width: 1100px; padding: 24px 16px; background: #EFF2F5; color: #1B2733;
       font: 15px/1.6 "Noto Sans CJK SC", sans-serif; }
h1 { font-size: 24px; margin: 0; }
h2 { font-size: 19px; margin: 56px 0 4px; color: #08566A; }
h3 { font-size: 15px; margin: 24px 0 8px; }
p { margin: 4px 0; color: #52606D; }
img { display: block; width: 100%; border: 1px solid #D5DCE3; }
pre { overflow-x: auto; padding: 16px; background: #FFFFFF; border: 1px solid #D5DCE3;
      font: 13px/1.5 "Noto Sans Mono CJK SC", monospace; }
</style>
</head>
<body>
<h1>%1：一天的工作</h1>
<p>%2，全部由键盘操作。标题栏由演示程序画出，窗口内容为程序本身的画面；点击图片可看原图。</p>
)"_s;

const QString kChapter = u"<h2>%1</h2>\n<p>%2</p>\n"_s;

const QString kPicture =
    uR"(<h3>%1. %2</h3>
<a href="%3"><img src="%3" alt="%2" loading="lazy"></a>
)"_s;

}  // namespace

QString IndexPage(const std::vector<Screen::Kept>& pictures, const QString& summary) {
    QString page = kHead.arg(product::kName.toHtmlEscaped(), sample::kCompany.toHtmlEscaped());
    int number = 0;
    QString chapter;
    for (const auto& picture : pictures) {
        if (picture.chapter != chapter)
            page += kChapter.arg(picture.chapter.toHtmlEscaped(), picture.words.toHtmlEscaped());
        chapter = picture.chapter;
        page += kPicture.arg(QString::number(++number), picture.caption.toHtmlEscaped(),
                             picture.file.toHtmlEscaped());
    }
    page += u"<h2>结果</h2>\n<pre>%1</pre>\n</body>\n</html>\n"_s.arg(summary.toHtmlEscaped());
    return page;
}

}  // namespace demo
