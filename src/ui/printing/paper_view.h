#pragma once

#include <functional>
#include <map>

#include <QImage>
#include <QPageLayout>
#include <QWidget>

namespace quorvel {

/// What is printed on page `page`, from 0, `scale` pixels of the screen for each of the printer's.
using PagePicture = std::function<QImage(int page, double scale)>;

/// One sheet of paper, or two side by side, as they will come out of the printer. Draws a page when it is
/// first shown, under the wait cursor.
class PaperView : public QWidget {
  Q_OBJECT
 public:
  /// `paper` is the printer's, with `dotsPerInch` pixels.
  PaperView(const QPageLayout& paper, int dotsPerInch, int pageCount, PagePicture picture);

  /// Shows other pages from the first on.
  void SetPages(int count, PagePicture picture);

  int FirstPage() const { return firstPage_; }
  int LastPage() const;
  int PageCount() const { return pageCount_; }
  bool ShowsTwo() const { return showsTwo_; }

  /// The pages beside `first` follow it; held within what there is.
  void ShowPage(int first);
  void ShowTwo(bool two);
  /// 1: the sheets fit into `room`; larger: so many times as large.
  void Fit(QSize room, double zoom);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int ShownCount() const { return LastPage() - firstPage_ + 1; }
  QSize SheetSize() const;
  const QImage& Sheet(int page);
  QImage Draw(int page) const;

  QPageLayout paper_;
  int dotsPerInch_;
  int pageCount_;
  PagePicture picture_;
  int firstPage_ = 0;
  bool showsTwo_ = false;
  double scale_ = 0.1;  // logical screen pixels a printer's pixel
  std::map<int, QImage> sheets_;
};

}  // namespace quorvel
