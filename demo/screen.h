// The screen of the demonstration and its pictures. A display without a window manager draws no title bars
// and does not stack windows, so this class does both. The program itself paints the content of the windows.
#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

#include <vector>

namespace demo {

class Screen {
  public:
    /// `size` is in device-independent pixels. Pictures are written to the folder as NUMBER-NAME + suffix +
    /// ".png", numbered in the order in which they are taken.
    Screen(QSize size, const QString& folder, const QString& suffix);

    /// Resizes the main window to the whole screen below its title bar.
    void Fill(QWidget& frame);
    /// The chapter of the following pictures: a title and a sentence on what is done.
    void Begin(const QString& chapter, const QString& words);
    /// Writes a picture of the main window and of all windows above it.
    void Keep(const QString& name, const QString& caption);
    /// Writes another picture in its turn.
    void Keep(const QString& name, const QString& caption, const QImage& picture);

    struct Kept {
        QString file;
        QString caption;
        QString chapter, words;
    };
    const std::vector<Kept>& Pictures() const { return kept_; }

  private:
    QImage Take() const;

    QSize size_;
    QString folder_;
    QString suffix_;
    QWidget* frame_ = nullptr;
    QString chapter_, words_;
    std::vector<Kept> kept_;
};

}  // namespace demo
