// The frame's background while no form is open: a picture that covers it at any aspect ratio.
#pragma once

#include <QPixmap>
#include <QWidget>

class Wallpaper : public QWidget {
    Q_OBJECT
  public:
    explicit Wallpaper(QWidget* parent = nullptr);
    /// Loads a picture of any format Qt reads. A file that cannot be read leaves the background empty.
    void LoadPicture(const QString& path);
    /// A quiet line at the lower left.
    void SetHint(const QString& hint);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void PaintPicture(QPainter& painter);

    QString hint_;
    QImage picture_;
    QPixmap scaled_;  ///< the picture at the size last painted
};
