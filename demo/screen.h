// The screen of the demonstration and the pictures of it. A display without a window manager draws no title
// bars and lays no window over another, so both are done here: what a picture shows inside the windows is
// what the program painted.
#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

#include <vector>

namespace demo {

class Screen {
  public:
    /// size in device-independent pixels; pictures go into the folder as
    /// NUMBER-NAME + suffix + ".png", numbered in the order of their taking.
    Screen(QSize size, const QString& folder, const QString& suffix);

    /// Gives the main window the whole screen beneath its title bar.
    void Fill(QWidget& frame);
    /// What the pictures from now on belong to: a title, and a sentence on what is done.
    void Begin(const QString& chapter, const QString& words);
    /// Writes a picture of the main window and all that stands over it.
    void Keep(const QString& name, const QString& caption);

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
