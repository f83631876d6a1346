#include "app/CJumpTableModel.h"

#include "app/CArtwork.h"
#include "app/CDateText.h"
#include "app/CSearchIndex.h"
#include "dialogs/CDlgJumpPageSignature.h"
#include "document/CLogbookDoc.h"
#include "model/CJump.h"
#include "model/JumpFields.h"
#include "query/CJumpIndex.h"
#include "query/CQueryParser.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"
#include "units/CUnitSettings.h"
#include "units/DurationText.h"

#include <QColor>
#include <QLocale>
#include <QTime>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

std::string Lower(std::string text)
{
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

std::string NoteFirstLine(const CJump& jump)
{
    std::string text;
    if (!jump.GetNoteText(text))
        text = jump.GetNote();
    const std::size_t end = text.find_first_of("\r\n");
    return end == std::string::npos ? text : text.substr(0, end);
}

// The first line of a note's text for sorting, read straight from the markup: tags are skipped
// and the first line ends at a line break or at the end of the first paragraph with text.
std::string NoteSortKey(const std::string& note)
{
    std::string key;
    for (std::size_t i = 0; i < note.size(); ++i) {
        const char c = note[i];
        if (c == '\r' || c == '\n') {
            if (!key.empty())
                break;
            continue;
        }
        if (c != '<') {
            key += (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
            continue;
        }
        const std::size_t close = note.find('>', i);
        if (close == std::string::npos)
            break;
        const std::string_view tag(note.data() + i + 1, close - i - 1);
        i = close;
        if (!key.empty() && (tag.starts_with("/p") || tag.starts_with("br") || tag.starts_with("/li") ||
                             tag.starts_with("/h") || tag.starts_with("/div")))
            break;
    }
    return key;
}

// The field each column shows, in column order.
constexpr JumpField kColumnFields[CJumpTableModel::ColumnCount] = {
    JumpField::Number,    JumpField::Date,    JumpField::Time, JumpField::Place,       JumpField::Aircraft,
    JumpField::Type,      JumpField::Exit,    JumpField::Open, JumpField::Freefall,    JumpField::Fallrate,
    JumpField::Equipment, JumpField::Landing, JumpField::Team, JumpField::Malfunction, JumpField::Signer,
    JumpField::Recording, JumpField::Note,    JumpField::Seal};

const JumpFieldInfo& FieldOf(int column)
{
    return JumpFieldInfoOf(kColumnFields[static_cast<std::size_t>(column)]);
}

bool IsText(int column)
{
    return column >= 0 && column < CJumpTableModel::ColumnCount && FieldOf(column).type == JumpFieldType::Text;
}

// Numbers stand right-aligned.
bool IsNumeric(int column)
{
    if (column < 0 || column >= CJumpTableModel::ColumnCount)
        return false;
    const JumpFieldType type = FieldOf(column).type;
    return type == JumpFieldType::Whole || type == JumpFieldType::Height || type == JumpFieldType::Duration;
}

} // namespace

CJumpTableModel::CJumpTableModel(CLogbookDoc& doc, const CUnitSettings& units, const CSearchIndex& index, Filter filter,
                                 QObject* parent)
    : QAbstractTableModel(parent), m_doc(doc), m_units(units), m_index(index), m_filter(filter)
{
    CombineQuery();
    m_rowIcons = {
        CArtwork::Icon(QStringLiteral("row_unsigned.svg")), CArtwork::Icon(QStringLiteral("row_unsigned_picture.svg")),
        CArtwork::Icon(QStringLiteral("row_signed.svg")),   CArtwork::Icon(QStringLiteral("row_signed_picture.svg")),
        CArtwork::Icon(QStringLiteral("row_sealed.svg")),   CArtwork::Icon(QStringLiteral("row_sealed_picture.svg")),
        CArtwork::Icon(QStringLiteral("row_changed.svg"))};
    m_recordingIcon = CArtwork::Icon(QStringLiteral("recording.svg"));
    m_sealIcons = {CArtwork::Icon(QStringLiteral("seal_intact.svg")),
                   CArtwork::Icon(QStringLiteral("seal_changed.svg")), CArtwork::Icon(QStringLiteral("seal_none.svg"))};
    Rebuild();
    m_doc.AddObserver(this);
}

CJumpTableModel::~CJumpTableModel()
{
    m_doc.RemoveObserver(this);
}

int CJumpTableModel::JumpIconIndex(const CJump& jump)
{
    const int picture = jump.GetPictureName().empty() ? 0 : 1;
    switch (jump.GetSealState()) {
    case SealState::NotSigned:
        return Unsigned + picture;
    case SealState::Intact:
        return Sealed + picture;
    case SealState::Changed:
        return SealChanged;
    case SealState::Unsealed:
        break;
    }
    return Signed + picture;
}

void CJumpTableModel::SetFilter(Filter filter)
{
    if (filter == m_filter)
        return;
    beginResetModel();
    m_filter = filter;
    CombineQuery();
    Rebuild();
    endResetModel();
}

void CJumpTableModel::SetQuery(const CQuery& query)
{
    if (query.terms == m_userQuery.terms)
        return;
    beginResetModel();
    m_userQuery = query;
    CombineQuery();
    Rebuild();
    endResetModel();
}

void CJumpTableModel::CombineQuery()
{
    m_query.terms.clear();
    // The list of jumps to be signed is the search for the unsigned ones.
    if (m_filter == Filter::UnsignedJumps)
        m_query = CQueryParser::Parse("signed:no", m_units).query;
    m_query.terms.insert(m_query.terms.end(), m_userQuery.terms.begin(), m_userQuery.terms.end());
}

std::size_t CJumpTableModel::FilteredCount() const
{
    switch (m_filter) {
    case Filter::AllJumps:
        return m_doc.GetJumpCount();
    case Filter::UnsignedJumps:
        return m_index.Get().Find(CQueryParser::Parse("signed:no", m_units).query).size();
    case Filter::NoJumps:
        break;
    }
    return 0;
}

std::vector<std::size_t> CJumpTableModel::RowJumps() const
{
    std::vector<std::size_t> jumps;
    jumps.reserve(m_rows.size());
    for (const std::uint32_t index : m_rows)
        if (index < m_doc.GetJumpCount())
            jumps.push_back(index);
    return jumps;
}

int CJumpTableModel::JumpIndexAt(int row) const
{
    if (row < 0 || static_cast<std::size_t>(row) >= m_rows.size() || m_rows[row] >= m_doc.GetJumpCount())
        return -1;
    return static_cast<int>(m_rows[row]);
}

const CJump* CJumpTableModel::JumpAt(int row) const
{
    const int index = JumpIndexAt(row);
    return index < 0 ? nullptr : &m_doc.GetJump(static_cast<std::size_t>(index));
}

int CJumpTableModel::RowOfJump(std::size_t index) const
{
    const auto at = std::find(m_rows.begin(), m_rows.end(), static_cast<std::uint32_t>(index));
    return at == m_rows.end() ? -1 : static_cast<int>(at - m_rows.begin());
}

int CJumpTableModel::IconIndexAt(int row) const
{
    const CJump* jump = JumpAt(row);
    return jump ? JumpIconIndex(*jump) : -1;
}

int CJumpTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int CJumpTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString CJumpTableModel::Text(const CJump& jump, int column) const
{
    if (column < 0 || column >= ColumnCount)
        return {};
    const JumpFieldInfo& field = FieldOf(column);
    const CLogbookSettings& settings = m_doc.GetSettings();
    const QLocale locale;
    std::string scratch;
    double value = 0;
    const bool present = JumpFieldNumber(jump, field.field, settings, value);
    switch (field.field) {
    case JumpField::Signer:
        if (!jump.IsSigned())
            return {};
        return jump.GetSignature().GetName().empty() ? tr("Signed")
                                                     : QString::fromStdString(jump.GetSignature().GetName());
    case JumpField::Note:
        return QString::fromStdString(NoteFirstLine(jump));
    case JumpField::Seal: {
        const int id = JumpSeal::StateTextId(jump.GetSealState());
        return id ? MessageText::Text(id) : QString();
    }
    default:
        break;
    }
    switch (field.type) {
    case JumpFieldType::Whole:
        return QString::number(static_cast<int>(value));
    case JumpFieldType::Date:
        return CDateText::ShortDate(jump.GetTimestamp().dateTime);
    case JumpFieldType::TimeOfDay: {
        if (!present)
            return {};
        const CDateTime& t = jump.GetTimestamp().dateTime;
        return locale.toString(QTime(t.Hour(), t.Minute(), t.Second()), QLocale::ShortFormat);
    }
    case JumpFieldType::Text: {
        const std::string_view text = JumpFieldText(jump, field.field, settings, scratch);
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }
    case JumpFieldType::Height:
        return locale.toString(std::lround(m_units.HeightToDisplay(value)));
    case JumpFieldType::Duration:
        return QString::fromStdString(DurationToText(static_cast<int>(value), false));
    case JumpFieldType::Kind: {
        static constexpr int kKinds[] = {StringTable::IDS_STANDARD, StringTable::IDS_VERTICAL, StringTable::IDS_CUSTOM,
                                         StringTable::IDS_MANUAL, StringTable::IDS_IMPORT};
        const int kind = static_cast<int>(jump.GetFallrateKind());
        return kind >= 0 && kind < kFallrateKindCount ? MessageText::Text(kKinds[kind]) : QString();
    }
    default:
        return {};
    }
}

QVariant CJumpTableModel::data(const QModelIndex& index, int role) const
{
    const CJump* jump = index.isValid() ? JumpAt(index.row()) : nullptr;
    if (!jump)
        return {};
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return Text(*jump, column);
    case Qt::ToolTipRole:
        if (column == RecordingColumn && jump->GetRecording().IsPresent())
            return jump->GetRecording().GetKind() == CJumpRecording::Satellite ? tr("GPS") : tr("Profile");
        if (column == PlaceColumn || column == NoteColumn || column == RigColumn)
            return Text(*jump, column);
        if (column == SealColumn)
            return CDlgJumpPageSignature::SealLine(jump->GetSealState());
        return {};
    case Qt::DecorationRole:
        if (column == NumberColumn)
            return m_rowIcons[static_cast<std::size_t>(JumpIconIndex(*jump))];
        if (column == RecordingColumn && jump->GetRecording().IsPresent())
            return m_recordingIcon;
        if (column == SealColumn) {
            switch (jump->GetSealState()) {
            case SealState::Intact:
                return m_sealIcons[0];
            case SealState::Changed:
                return m_sealIcons[1];
            case SealState::Unsealed:
                return m_sealIcons[2];
            case SealState::NotSigned:
                break;
            }
        }
        return {};
    case Qt::ForegroundRole:
        // A broken seal stands out in red.
        if (column == SealColumn && jump->GetSealState() == SealState::Changed)
            return QColor(0xc0, 0x00, 0x00);
        return {};
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignVCenter | (IsNumeric(column) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::UserRole:
        return JumpIndexAt(index.row());
    default:
        return {};
    }
}

QVariant CJumpTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::AlignVCenter | (IsNumeric(section) ? Qt::AlignRight : Qt::AlignLeft));
    if (role != Qt::DisplayRole)
        return {};
    if (section < 0 || section >= ColumnCount)
        return {};
    const JumpFieldInfo& field = FieldOf(section);
    const QString label = MessageText::Text(field.labelId);
    if (field.unit != JumpFieldUnit::Height)
        return label;
    return label.arg(QString::fromUtf8(m_units.HeightLabel().data(), qsizetype(m_units.HeightLabel().size())));
}

CJumpTableModel::SortKey CJumpTableModel::KeyOf(const CJump& jump, int column) const
{
    SortKey key;
    if (column < 0 || column >= ColumnCount)
        return key;
    const JumpFieldInfo& field = FieldOf(column);
    if (field.field == JumpField::Signer) {
        // Unsigned first, then by the signer's name.
        key.text = jump.IsSigned() ? "1" + Lower(jump.GetSignature().GetName()) : std::string();
    } else if (field.field == JumpField::Note) {
        key.text = NoteSortKey(jump.GetNote());
    } else if (field.type == JumpFieldType::Text) {
        std::string scratch;
        key.text = Lower(std::string(JumpFieldText(jump, field.field, m_doc.GetSettings(), scratch)));
    } else {
        JumpFieldNumber(jump, field.field, m_doc.GetSettings(), key.number);
    }
    return key;
}

bool CJumpTableModel::Before(std::uint32_t a, const SortKey& keyA, std::uint32_t b, const SortKey& keyB) const
{
    const bool descending = m_sortOrder == Qt::DescendingOrder;
    if (keyA.number != keyB.number)
        return descending ? keyB.number < keyA.number : keyA.number < keyB.number;
    if (const int order = keyA.text.compare(keyB.text); order != 0)
        return descending ? order > 0 : order < 0;
    // Equal values keep the document's order (number, then insertion).
    return a < b;
}

bool CJumpTableModel::Accepts(std::size_t index) const
{
    return m_filter != Filter::NoJumps && (m_query.IsEmpty() || m_index.Get().Matches(m_query, index));
}

std::vector<std::uint32_t> CJumpTableModel::AcceptedJumps() const
{
    std::vector<std::uint32_t> rows;
    if (m_filter == Filter::NoJumps)
        return rows;
    if (m_query.IsEmpty()) {
        rows.resize(m_doc.GetJumpCount());
        std::iota(rows.begin(), rows.end(), 0u);
        return rows;
    }
    const std::vector<std::size_t> found = m_index.Get().Find(m_query);
    rows.assign(found.begin(), found.end());
    return rows;
}

void CJumpTableModel::Rebuild()
{
    m_rows = AcceptedJumps();
    if (m_rows.empty()) {
        m_rows.shrink_to_fit();
        return;
    }
    // The document's order is already the number order.
    if (m_sortColumn == NumberColumn && m_sortOrder == Qt::AscendingOrder)
        return;
    // The keys sit beside their rows while sorting, so that comparing never looks elsewhere.
    const bool descending = m_sortOrder == Qt::DescendingOrder;
    if (!IsText(m_sortColumn)) {
        std::vector<std::pair<double, std::uint32_t>> keyed;
        keyed.reserve(m_rows.size());
        for (std::uint32_t index : m_rows)
            keyed.emplace_back(KeyOf(m_doc.GetJump(index), m_sortColumn).number, index);
        std::sort(keyed.begin(), keyed.end(), [descending](const auto& a, const auto& b) {
            if (a.first != b.first)
                return descending ? b.first < a.first : a.first < b.first;
            return a.second < b.second;
        });
        for (std::size_t row = 0; row < keyed.size(); ++row)
            m_rows[row] = keyed[row].second;
        return;
    }
    // The rigs' texts once each: most jumps name a rig of the list.
    const CEquipmentList& rigs = m_doc.GetSettings().GetEquipmentList();
    std::vector<std::string> rigTexts(rigs.GetCount());
    std::vector<std::string> texts;
    texts.reserve(m_rows.size());
    for (std::uint32_t index : m_rows) {
        const CJump& jump = m_doc.GetJump(index);
        const CJumpEquipmentRef& ref = jump.GetEquipmentRef();
        if (m_sortColumn == RigColumn && ref.mode == CJumpEquipmentRef::ByIndex && ref.index >= 0 &&
            static_cast<std::size_t>(ref.index) < rigTexts.size()) {
            std::string& text = rigTexts[static_cast<std::size_t>(ref.index)];
            if (text.empty())
                text = KeyOf(jump, RigColumn).text;
            texts.push_back(text);
        } else {
            texts.push_back(KeyOf(jump, m_sortColumn).text);
        }
    }
    // Most comparisons end within the first eight bytes, compared as one number; only equal
    // beginnings look at the whole texts.
    struct Keyed
    {
        std::uint64_t prefix;
        std::uint32_t slot;  // position in texts and in the rows before sorting
        std::uint32_t index; // the jump's document position
    };
    std::vector<Keyed> keyed(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        std::uint64_t prefix = 0;
        for (std::size_t k = 0; k < 8; ++k)
            prefix = (prefix << 8) | (k < texts[i].size() ? static_cast<unsigned char>(texts[i][k]) : 0u);
        keyed[i] = {prefix, static_cast<std::uint32_t>(i), m_rows[i]};
    }
    std::sort(keyed.begin(), keyed.end(), [&](const Keyed& a, const Keyed& b) {
        int order = a.prefix < b.prefix ? -1 : a.prefix > b.prefix ? 1 : 0;
        if (order == 0)
            order = texts[a.slot].compare(texts[b.slot]);
        if (order != 0)
            return descending ? order > 0 : order < 0;
        return a.index < b.index;
    });
    for (std::size_t row = 0; row < keyed.size(); ++row)
        m_rows[row] = keyed[row].index;
}

void CJumpTableModel::sort(int column, Qt::SortOrder order)
{
    if (column < 0 || column >= ColumnCount)
        return;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<int> jumps;
    jumps.reserve(static_cast<std::size_t>(before.size()));
    for (const QModelIndex& index : before)
        jumps.push_back(JumpIndexAt(index.row()));
    m_sortColumn = column;
    m_sortOrder = order;
    Rebuild();
    // The selection and the current row stay on their jumps.
    QModelIndexList after;
    after.reserve(before.size());
    if (!before.isEmpty()) {
        std::vector<int> rowOf(m_doc.GetJumpCount(), -1);
        for (std::size_t row = 0; row < m_rows.size(); ++row)
            rowOf[m_rows[row]] = static_cast<int>(row);
        for (qsizetype i = 0; i < before.size(); ++i) {
            const int jump = jumps[static_cast<std::size_t>(i)];
            after.append(jump < 0 ? QModelIndex() : index(rowOf[static_cast<std::size_t>(jump)], before[i].column()));
        }
    }
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

int CJumpTableModel::InsertRow(std::uint32_t index, int skip) const
{
    // A binary search over the rows, leaving out the row skip (the jump's own, when it moves).
    const SortKey key = KeyOf(m_doc.GetJump(index), m_sortColumn);
    const auto rowAt = [skip](int position) { return skip >= 0 && position >= skip ? position + 1 : position; };
    int low = 0;
    int high = static_cast<int>(m_rows.size()) - (skip >= 0 ? 1 : 0);
    while (low < high) {
        const int middle = low + (high - low) / 2;
        const std::uint32_t other = m_rows[static_cast<std::size_t>(rowAt(middle))];
        if (Before(other, KeyOf(m_doc.GetJump(other), m_sortColumn), index, key))
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

void CJumpTableModel::Reposition(std::size_t index)
{
    const int row = RowOfJump(index);
    if (row < 0)
        return;
    const auto jump = static_cast<std::uint32_t>(index);
    const SortKey key = KeyOf(m_doc.GetJump(index), m_sortColumn);
    const auto keyAt = [&](int r) { return KeyOf(m_doc.GetJump(m_rows[static_cast<std::size_t>(r)]), m_sortColumn); };
    const bool afterPrevious = row == 0 || Before(m_rows[row - 1], keyAt(row - 1), jump, key);
    const bool beforeNext =
        row + 1 == static_cast<int>(m_rows.size()) || Before(jump, key, m_rows[row + 1], keyAt(row + 1));
    if (afterPrevious && beforeNext)
        return;
    // Its place among the other rows.
    const int target = InsertRow(jump, row);
    if (!beginMoveRows({}, row, row, {}, target > row ? target + 1 : target))
        return;
    m_rows.erase(m_rows.begin() + row);
    m_rows.insert(m_rows.begin() + target, jump);
    endMoveRows();
}

void CJumpTableModel::JumpsInserted(std::size_t first, std::size_t count)
{
    // Jumps appended at the end move no other jump.
    if (first + count < m_doc.GetJumpCount())
        for (std::uint32_t& index : m_rows)
            if (index >= first)
                index += static_cast<std::uint32_t>(count);
    for (std::size_t i = first; i < first + count; ++i) {
        if (!Accepts(i))
            continue;
        const int row = InsertRow(static_cast<std::uint32_t>(i));
        beginInsertRows({}, row, row);
        m_rows.insert(m_rows.begin() + row, static_cast<std::uint32_t>(i));
        endInsertRows();
    }
}

void CJumpTableModel::JumpsChanged(std::size_t first, std::size_t count)
{
    for (std::size_t i = first; i < first + count; ++i) {
        const int row = RowOfJump(i);
        const bool accepted = Accepts(i);
        if (row < 0 && accepted) {
            const int at = InsertRow(static_cast<std::uint32_t>(i));
            beginInsertRows({}, at, at);
            m_rows.insert(m_rows.begin() + at, static_cast<std::uint32_t>(i));
            endInsertRows();
        } else if (row >= 0 && !accepted) {
            beginRemoveRows({}, row, row);
            m_rows.erase(m_rows.begin() + row);
            endRemoveRows();
        } else if (row >= 0) {
            Reposition(i);
            const int now = RowOfJump(i);
            emit dataChanged(index(now, 0), index(now, ColumnCount - 1));
        }
    }
}

void CJumpTableModel::JumpsRemoved(std::size_t first, std::size_t count)
{
    const std::size_t end = first + count;
    std::vector<int> gone;
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        if (m_rows[row] >= first && m_rows[row] < end)
            gone.push_back(static_cast<int>(row));
    // Many rows at once: the views start afresh rather than hear of each.
    if (gone.size() > 64) {
        beginResetModel();
        m_rows.erase(std::remove_if(m_rows.begin(), m_rows.end(),
                                    [&](std::uint32_t index) { return index >= first && index < end; }),
                     m_rows.end());
        for (std::uint32_t& index : m_rows)
            if (index >= end)
                index -= static_cast<std::uint32_t>(count);
        endResetModel();
        return;
    }
    // The rows that stay point at their jumps' new positions before any view hears of the
    // removal; the rows about to go show nothing meanwhile.
    for (int row : gone)
        m_rows[static_cast<std::size_t>(row)] = kGone;
    for (std::uint32_t& index : m_rows)
        if (index != kGone && index >= end)
            index -= static_cast<std::uint32_t>(count);
    // Runs of adjacent rows, from the last.
    for (std::size_t i = gone.size(); i > 0;) {
        std::size_t j = i - 1;
        while (j > 0 && gone[j - 1] + 1 == gone[j])
            --j;
        beginRemoveRows({}, gone[j], gone[i - 1]);
        m_rows.erase(m_rows.begin() + gone[j], m_rows.begin() + gone[i - 1] + 1);
        endRemoveRows();
        i = j;
    }
}

void CJumpTableModel::JumpMoved(std::size_t from, std::size_t to)
{
    // The jumps between shift by one; the moved one's row follows with JumpsChanged.
    for (std::uint32_t& index : m_rows) {
        if (index == from)
            index = static_cast<std::uint32_t>(to);
        else if (from < to && index > from && index <= to)
            --index;
        else if (to < from && index >= to && index < from)
            ++index;
    }
}

void CJumpTableModel::SettingsChanged()
{
    // A rig's text or a freefall time the query looks at may have changed: when other jumps
    // match now, the views start afresh.
    if (!m_query.IsEmpty() && m_filter != Filter::NoJumps) {
        std::vector<std::uint32_t> shown = m_rows;
        std::sort(shown.begin(), shown.end());
        if (shown != AcceptedJumps()) {
            LogbookReset();
            return;
        }
    }
    // Rig names, custom freefall times and the seals that cover them may read differently now.
    if (m_sortColumn == RigColumn || m_sortColumn == FreefallColumn || m_sortColumn == SealColumn)
        sort(m_sortColumn, m_sortOrder);
    if (!m_rows.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

void CJumpTableModel::LogbookReset()
{
    beginResetModel();
    Rebuild();
    endResetModel();
}

void CJumpTableModel::UnitsChanged()
{
    emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
    if (!m_rows.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}
