#include "desktop/main_window/TimelineView.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "desktop/colors.h"
#include "desktop/main_window/cells.h"
#include "desktop/text.h"

namespace pactora::desktop {
namespace {

constexpr int kMargin = 12;    // pixels around the picture
constexpr int kBetween = 4;    // pixels between two terms
constexpr int kPadding = 6;    // pixels around a text in a bar
constexpr int kLeastBar = 3;   // pixels of the shortest term
constexpr int kMarkWidth = 2;  // pixels
constexpr int kMostRows = 6;   // terms that the size hint has room for

struct MarkColors {
  QRgb today;
  QRgb notice;
  QRgb invoice;
  QRgb bar;
  QRgb past;
  QRgb bar_text;
};
constexpr MarkColors kOnLight{0xFF5F6670, 0xFFB3261E, 0xFF1E7A3C,
                              0xFFBFD8F5, 0xFFDDE1E6, 0xFF1B1D21};
constexpr MarkColors kOnDark{0xFFB9BEC6, 0xFFF28B82, 0xFF81C995,
                             0xFF2F5C92, 0xFF50555E, 0xFFF1F3F5};

QString DayText(platform::Date date) { return CellText(CellKind::Date, date); }

const MarkColors& ColorsFor(const QPalette& palette) {
  return IsDark(palette) ? kOnDark : kOnLight;
}

}  // namespace

TimelineView::TimelineView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("timeline"));
  setAccessibleName(QStringLiteral("Zeitstrahl"));
}

void TimelineView::Show(std::optional<Timeline> line, platform::Date today) {
  line_ = std::move(line);
  today_ = today;
  setAccessibleDescription(Words());
  updateGeometry();
  update();
}

std::vector<TimelineView::Mark> TimelineView::Marks() const {
  const MarkColors& colors = ColorsFor(palette());
  std::vector<Mark> marks;
  if (!line_) return marks;
  marks.push_back({today_, QStringLiteral("heute"), QColor::fromRgb(colors.today)});
  if (line_->notice) {
    marks.push_back({*line_->notice, QStringLiteral("Kündigung bis ") + DayText(*line_->notice),
                     QColor::fromRgb(colors.notice)});
  }
  for (const TimelineTerm& term : line_->terms) {
    if (!term.next_invoice) continue;
    marks.push_back({*term.next_invoice,
                     QStringLiteral("nächste Rechnung ") + DayText(*term.next_invoice),
                     QColor::fromRgb(colors.invoice)});
  }
  // The words of each stand below the lines to their right.
  std::ranges::stable_sort(marks, std::ranges::greater(), &Mark::date);
  return marks;
}

QString TimelineView::TermText(const TimelineTerm& term) const {
  return term.end ? QStringLiteral("%1 – %2").arg(DayText(term.start), DayText(*term.end))
                  : QStringLiteral("ab %1, ohne Ende").arg(DayText(term.start));
}

QString TimelineView::Words() const {
  if (!line_) return QStringLiteral("Kein Vertrag ausgewählt");
  QStringList words{ToQt(line_->title)};
  for (const TimelineTerm& term : line_->terms) {
    words += QStringLiteral("Laufzeit ") + TermText(term);
  }
  for (const Mark& mark : Marks()) {
    if (mark.date != today_ || mark.text != QStringLiteral("heute")) words += mark.text;
  }
  return words.join(QStringLiteral("; "));
}

int TimelineView::RowHeight() const { return fontMetrics().height() + kPadding; }

int TimelineView::TickWidth() const {
  return fontMetrics().horizontalAdvance(QStringLiteral("00/0000")) + 2 * kPadding;
}

int TimelineView::AxisHeight() const { return fontMetrics().height() + kPadding; }

QSize TimelineView::minimumSizeHint() const {
  const auto terms = line_ ? static_cast<int>(line_->terms.size()) : 0;
  const auto marks = static_cast<int>(Marks().size());
  const int rows = std::max(1, terms) * (RowHeight() + kBetween) + marks * RowHeight();
  return {5 * TickWidth(), 2 * kMargin + fontMetrics().height() + AxisHeight() + rows};
}

QSize TimelineView::sizeHint() const {
  return minimumSizeHint().boundedTo(
      {10 * TickWidth(), 2 * kMargin + (kMostRows + 4) * (RowHeight() + kBetween)});
}

int TimelineView::X(platform::Date date, const TimeAxis& axis) const {
  return kMargin + qRound(axis.Place(date) * (width() - 2 * kMargin));
}

int TimelineView::MarkTop(std::size_t mark) const {
  const auto terms = static_cast<int>(std::max<std::size_t>(1, line_->terms.size()));
  return kMargin + fontMetrics().height() + kPadding + AxisHeight() +
         terms * (RowHeight() + kBetween) + static_cast<int>(mark) * RowHeight();
}

QRect TimelineView::TermRect(std::size_t term, const TimeAxis& axis) const {
  const TimelineTerm& shown = line_->terms[term];
  const int left = X(shown.start, axis);
  // The last day belongs to the term.
  const int right = shown.end ? X(platform::Date{shown.end->days + 1}, axis) : X(axis.Last(), axis);
  const int top = kMargin + fontMetrics().height() + kPadding + AxisHeight() +
                  static_cast<int>(term) * (RowHeight() + kBetween);
  return {left, top, std::max(kLeastBar, right - left), RowHeight()};
}

void TimelineView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  if (!line_) {
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("Kein Vertrag ausgewählt"));
    return;
  }
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(QRect(kMargin, kMargin, width() - 2 * kMargin, fontMetrics().height()),
                   Qt::AlignLeft | Qt::AlignVCenter, ToQt(line_->title));
  painter.setFont(font());
  const TimeAxis axis(*line_, today_);
  const std::vector<Label> labels = Labels(axis);
  PaintBars(painter, axis);
  QRegion beside(rect());
  for (const Label& label : labels) beside -= label.place;
  painter.setClipRegion(beside);
  PaintAxis(painter, axis);
  PaintMarks(painter, axis);
  painter.setClipping(false);
  for (const Label& label : labels) {
    painter.setPen(label.color);
    painter.drawText(label.place, Qt::AlignCenter, label.text);
  }
}

std::vector<TimelineView::Label> TimelineView::Labels(const TimeAxis& axis) const {
  const auto wide = [this](const QString& text) {
    return fontMetrics().horizontalAdvance(text) + 2 * kPadding;
  };
  std::vector<Label> labels;
  for (std::size_t i = 0; i < line_->terms.size(); ++i) {
    const QString text = TermText(line_->terms[i]);
    const QRect bar = TermRect(i, axis);
    // In the bar where there is room, else behind or before it.
    QRect place(bar.left(), bar.top(), wide(text), bar.height());
    const bool inside = place.width() <= bar.width();
    if (!inside) {
      const bool behind = bar.right() + place.width() < width() - kMargin;
      place.moveLeft(behind ? bar.right() + 1 : std::max(0, bar.left() - place.width()));
    }
    labels.push_back({place, text,
                      inside ? QColor::fromRgb(ColorsFor(palette()).bar_text)
                             : palette().color(QPalette::Text)});
  }
  const std::vector<Mark> marks = Marks();
  for (std::size_t i = 0; i < marks.size(); ++i) {
    const int x = X(marks[i].date, axis);
    const int width_of = wide(marks[i].text);
    const bool right = x + width_of < width() - kMargin / 2;
    labels.push_back({{right ? x + kMarkWidth : x - width_of, MarkTop(i), width_of, RowHeight()},
                      marks[i].text,
                      marks[i].color});
  }
  return labels;
}

void TimelineView::PaintAxis(QPainter& painter, const TimeAxis& axis) const {
  const int top = kMargin + fontMetrics().height() + kPadding;
  QColor line = palette().color(QPalette::PlaceholderText);
  line.setAlpha(70);
  for (const TimeTick& tick : axis.Ticks(std::max(2, (width() - 2 * kMargin) / TickWidth()))) {
    const int x = X(tick.date, axis);
    painter.setPen(line);
    painter.drawLine(x, top, x, height() - kMargin);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(QRect(x + 3, top, TickWidth(), fontMetrics().height()), Qt::AlignLeft,
                     ToQt(tick.label));
  }
}

void TimelineView::PaintBars(QPainter& painter, const TimeAxis& axis) const {
  const MarkColors& colors = ColorsFor(palette());
  painter.setPen(Qt::NoPen);
  for (std::size_t i = 0; i < line_->terms.size(); ++i) {
    const TimelineTerm& term = line_->terms[i];
    const QRect bar = TermRect(i, axis);
    const bool past = term.end && *term.end < today_;
    const QColor color = QColor::fromRgb(past ? colors.past : colors.bar);
    if (term.end) {
      painter.setBrush(color);
    } else {
      // Its end is not known.
      QLinearGradient fading(bar.topLeft(), bar.topRight());
      fading.setColorAt(0, color);
      fading.setColorAt(0.6, color);
      fading.setColorAt(1, palette().color(QPalette::Base));
      painter.setBrush(fading);
    }
    painter.drawRoundedRect(bar, 3, 3);
  }
}

void TimelineView::PaintMarks(QPainter& painter, const TimeAxis& axis) const {
  const int top = kMargin + fontMetrics().height() + kPadding + fontMetrics().height();
  const std::vector<Mark> marks = Marks();
  for (std::size_t i = 0; i < marks.size(); ++i) {
    const int x = X(marks[i].date, axis);
    painter.fillRect(x, top, kMarkWidth, MarkTop(i) + RowHeight() - kPadding - top, marks[i].color);
  }
}

bool TimelineView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !line_) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const TimeAxis axis(*line_, today_);
  for (std::size_t i = 0; i < line_->terms.size(); ++i) {
    if (!TermRect(i, axis).contains(help->pos())) continue;
    QToolTip::showText(help->globalPos(), TermText(line_->terms[i]), this);
    return true;
  }
  QToolTip::hideText();
  return true;
}

}  // namespace pactora::desktop
