#include "app/CJumpDetailsPane.h"

#include "app/CJumpTableModel.h"
#include "controls/CSignatureCtrl.h"
#include "dialogs/CDlgJumpPageSignature.h"
#include "model/CJump.h"
#include "tracks/CRecordingSeries.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

#include <algorithm>

// The recording's altitude over time as one line, with no axes: a glance at the jump's shape.
class CAltitudeCurve : public QWidget
{
public:
    explicit CAltitudeCurve(QWidget* parent) : QWidget(parent)
    {
        setObjectName(QStringLiteral("altitudeCurve"));
        setMinimumHeight(70);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }
    void SetSeries(CRecordingSeries series)
    {
        m_series = std::move(series);
        setVisible(!m_series.IsEmpty());
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF area = QRectF(rect()).adjusted(2, 2, -2, -2);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(area);
        if (m_series.IsEmpty())
            return;
        const auto times = m_series.TimeRange();
        const auto heights = m_series.AltitudeRange();
        const double spanT = std::max(times.Span(), 1e-9);
        const double spanH = std::max(heights.Span(), 1e-9);
        QPainterPath path;
        const std::vector<double>& t = m_series.Times();
        const std::vector<double>& h = m_series.Altitudes();
        // At most about two points a pixel: a long recording is thinned for the drawing.
        const std::size_t step = std::max<std::size_t>(1, t.size() / std::max(1, 2 * width()));
        for (std::size_t i = 0; i < t.size(); i += step) {
            const QPointF point(area.left() + (t[i] - times.min) / spanT * area.width(),
                                area.bottom() - (h[i] - heights.min) / spanH * area.height());
            if (i == 0)
                path.moveTo(point);
            else
                path.lineTo(point);
        }
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
        painter.drawPath(path);
    }
    QSize sizeHint() const override { return QSize(200, 70); }

private:
    CRecordingSeries m_series;
};

CJumpDetailsPane::CJumpDetailsPane(CJumpTableModel* model, QWidget* parent) : QWidget(parent), m_model(model)
{
    setObjectName(QStringLiteral("jumpDetails"));
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(6, 6, 6, 6);
    m_title = new QLabel(this);
    m_title->setObjectName(QStringLiteral("detailsTitle"));
    QFont bold = m_title->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.2);
    m_title->setFont(bold);
    outer->addWidget(m_title);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(1, 1);
    for (int column = CJumpTableModel::DateColumn; column < CJumpTableModel::ColumnCount; ++column) {
        if (column == CJumpTableModel::NoteColumn || column == CJumpTableModel::RecordingColumn)
            continue;
        auto* name = new QLabel(this);
        auto* value = new QLabel(this);
        name->setProperty("column", column);
        value->setObjectName(QStringLiteral("detailValue%1").arg(column));
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        value->setWordWrap(true);
        const int row = static_cast<int>(m_names.size());
        grid->addWidget(name, row, 0, Qt::AlignTop);
        grid->addWidget(value, row, 1, Qt::AlignTop);
        m_names.push_back(name);
        m_values.push_back(value);
    }
    outer->addLayout(grid);

    m_note = new QLabel(this);
    m_note->setObjectName(QStringLiteral("detailNote"));
    m_note->setWordWrap(true);
    m_note->setTextFormat(Qt::PlainText);
    m_note->setTextInteractionFlags(Qt::TextSelectableByMouse);
    outer->addWidget(m_note);

    m_signature = new CSignatureCtrl(this);
    m_signature->setObjectName(QStringLiteral("detailSignature"));
    m_signature->SetReadOnly(true);
    m_signature->setFixedHeight(90);
    outer->addWidget(m_signature);
    m_curve = new CAltitudeCurve(this);
    outer->addWidget(m_curve);
    outer->addStretch(1);

    // The jump shown follows its row through changes, moves and sorting.
    connect(model, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& first, const QModelIndex& last) {
        if (m_row.isValid() && m_row.row() >= first.row() && m_row.row() <= last.row())
            Refresh();
    });
    connect(model, &QAbstractItemModel::headerDataChanged, this, &CJumpDetailsPane::Refresh);
    connect(model, &QAbstractItemModel::modelReset, this, &CJumpDetailsPane::Refresh);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &CJumpDetailsPane::Refresh);
    ShowRow(-1);
}

void CJumpDetailsPane::ShowRow(int row)
{
    m_row = QPersistentModelIndex(m_model->index(row, 0));
    Refresh();
}

int CJumpDetailsPane::JumpIndex() const
{
    return m_row.isValid() ? m_model->JumpIndexAt(m_row.row()) : -1;
}

QString CJumpDetailsPane::ValueText(int column) const
{
    for (std::size_t i = 0; i < m_names.size(); ++i)
        if (m_names[i]->property("column").toInt() == column)
            return m_values[i]->text();
    return {};
}

void CJumpDetailsPane::Refresh()
{
    const int row = m_row.isValid() ? m_row.row() : -1;
    const CJump* jump = m_model->JumpAt(row);
    for (QWidget* widget : {static_cast<QWidget*>(m_note), static_cast<QWidget*>(m_signature)})
        widget->setVisible(jump != nullptr);
    for (std::size_t i = 0; i < m_names.size(); ++i) {
        const int column = m_names[i]->property("column").toInt();
        m_names[i]->setText(m_model->headerData(column, Qt::Horizontal).toString() + QLatin1Char(':'));
        m_values[i]->setText(jump ? m_model->index(row, column).data().toString() : QString());
        if (column == CJumpTableModel::SignerColumn && jump && !jump->GetSignature().GetLicence().empty())
            m_values[i]->setText(
                tr("%1 (licence %2)")
                    .arg(m_values[i]->text(), QString::fromStdString(jump->GetSignature().GetLicence())));
        if (column == CJumpTableModel::SealColumn) {
            // A broken seal in red, as in the table and the editor; no line for an unsigned jump.
            const bool changed = jump && jump->GetSealState() == SealState::Changed;
            m_values[i]->setStyleSheet(changed ? QStringLiteral("color: #c00000; font-weight: bold;") : QString());
            m_values[i]->setToolTip(jump ? CDlgJumpPageSignature::SealLine(jump->GetSealState()) : QString());
        }
        const bool shown = jump && (column != CJumpTableModel::SealColumn || jump->IsSigned());
        m_names[i]->setVisible(shown);
        m_values[i]->setVisible(shown);
    }
    m_curve->SetSeries(jump && jump->GetRecording().IsPresent() ? CRecordingSeries(jump->GetRecording())
                                                                : CRecordingSeries());
    if (!jump) {
        m_title->setText(tr("No jump selected"));
        return;
    }
    m_title->setText(tr("Jump %1").arg(jump->GetNumber()));
    std::string note;
    if (!jump->GetNoteText(note))
        note = jump->GetNote();
    m_note->setText(QString::fromStdString(note));
    m_note->setVisible(!note.empty());
    m_signature->SetStrokes(jump->GetSignature().GetStrokes());
    m_signature->setVisible(jump->IsSigned());
}
