// The picture of a contract's timeline: a bar for each term, and lines for today, the
// last day for notice and the next invoice.
#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "desktop/main_window/timeline.h"

namespace pactora::desktop {

class TimelineView final : public QWidget {
 public:
  explicit TimelineView(QWidget* parent = nullptr);

  // Shows the timeline, or that there is none.
  void Show(std::optional<Timeline> line, platform::Date today);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  // A day that matters, with its words.
  struct Mark {
    platform::Date date;
    QString text;
    QColor color;
  };
  std::vector<Mark> Marks() const;  // the latest first
  QString TermText(const TimelineTerm& term) const;
  // In words, for those who can't see it.
  QString Words() const;
  int RowHeight() const;
  int AxisHeight() const;
  int TickWidth() const;  // that a tick's label has at least
  QRect TermRect(std::size_t term, const TimeAxis& axis) const;
  int MarkTop(std::size_t mark) const;  // of its words
  int X(platform::Date date, const TimeAxis& axis) const;

  // A text where it stands; no line runs through it.
  struct Label {
    QRect place;
    QString text;
    QColor color;
  };
  // What the bars say, and the marks.
  std::vector<Label> Labels(const TimeAxis& axis) const;
  void PaintBars(QPainter& painter, const TimeAxis& axis) const;
  void PaintAxis(QPainter& painter, const TimeAxis& axis) const;
  void PaintMarks(QPainter& painter, const TimeAxis& axis) const;

  std::optional<Timeline> line_;
  platform::Date today_;
};

}  // namespace pactora::desktop
