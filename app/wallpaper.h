// The page that the frame shows while no form is open: a picture that covers it whatever its shape.
#pragma once

#include <QPixmap>
#include <QWidget>

class Wallpaper : public QWidget {
    Q_OBJECT
  public:
    explicit Wallpaper(QWidget* parent = nullptr);
    /// A picture of any format. What cannot be read leaves the page empty.
    void LoadPicture(const QString& path);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QImage picture_;
    QPixmap scaled_;  ///< as last painted
};
