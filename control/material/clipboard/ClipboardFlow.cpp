#include "ClipboardFlow.h"

#include "MaterialEditor.h"
#include "ValueText.h"
#include <CorvexMaterial/AttributeText.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QWidget>

#include <algorithm>

namespace CorvexMaterial {

namespace {

using Kind = MaterialPiece::Kind;

bool Has(const MaterialClip& clip, Attribute attribute)
{
    return std::ranges::find(clip.attributes, attribute) != clip.attributes.end();
}

/// The attribute of a clip that holds one alone.
std::optional<Attribute> OnlyOne(const std::optional<MaterialClip>& clip)
{
    return clip && clip->attributes.size() == 1 ? std::optional(clip->attributes.front())
                                                : std::nullopt;
}

std::optional<EditedRow> ValueFor(const TouchedRow& row, const ClipReading& reading)
{
    std::optional<EditedValue> value;
    if (reading.clip && Has(*reading.clip, row.attribute)) {
        value = ValueOf(row.attribute, row.element, reading.clip->record);
    } else if (const auto other = OnlyOne(reading.clip)) {
        value = IsOfTheSameKind(*other, row.attribute)
                    ? ValueOfText(row.attribute,
                                  TextIn(reading.clip->record, *other).value_or(std::string()))
                    : std::nullopt;
    } else if (!reading.clip) {
        value = ValueOfText(row.attribute, reading.text.toStdString());
    }
    return value ? std::optional(EditedRow{row.attribute, row.element, *value}) : std::nullopt;
}

/// Its file, where the clip is one of a single layer.
std::optional<std::string> LayerFileIn(const MaterialClip& clip)
{
    const auto isFile = [](Attribute attribute) {
        return std::ranges::find(kTextureFiles, attribute) != kTextureFiles.end();
    };
    if (std::ranges::count_if(clip.attributes, isFile) != 1) {
        return std::nullopt;
    }
    const Attribute file = *std::ranges::find_if(clip.attributes, isFile);
    return std::get<std::string>(RowOf(file).path.get(clip.record));
}

std::vector<EditedRow> RowsFor(const MaterialPiece& piece, const ClipReading& reading)
{
    std::vector<EditedRow> rows;
    if (piece.kind == Kind::Value) {
        if (auto row = ValueFor(piece.rows.front(), reading)) {
            rows.push_back(std::move(*row));
        }
        return rows;
    }
    if (!reading.clip) {
        return rows;
    }
    for (const TouchedRow& row : piece.rows) {
        if (Has(*reading.clip, row.attribute)) {
            rows.push_back({row.attribute, row.element,
                            ValueOf(row.attribute, row.element, reading.clip->record)});
        }
    }
    const Attribute first = piece.rows.front().attribute;
    if (const auto file = LayerFileIn(*reading.clip);
        piece.kind == Kind::Layer && file && !Has(*reading.clip, first)) {
        rows.push_back({first, 0, *file});
    }
    return rows;
}

QString TitleOf(const std::vector<EditedRow>& rows)
{
    const AttributeRow& first = RowOf(rows.front().attribute);
    const bool isOne = rows.size() == 1;
    const bool isGroup = std::ranges::all_of(
        rows, [&](const EditedRow& row) { return RowOf(row.attribute).group == first.group; });
    return isOne     ? PieceOf(TouchedRow{first.attribute}).title
           : isGroup ? PieceOf(first.group).title
                     : WholeMaterial().title;
}

}  // namespace

void ClipboardFlow::Copy(const MaterialPiece& piece)
{
    const CorvexDB::udtMaterial record = m_editor.Gatherer().Whole();
    MaterialClip clip{record, {}, piece.kind == Kind::Whole};
    for (const TouchedRow& row : piece.rows) {
        if (clip.attributes.empty() || clip.attributes.back() != row.attribute) {
            clip.attributes.push_back(row.attribute);
        }
    }
    const bool isValue = piece.kind == Kind::Value;
    const TouchedRow& first = piece.rows.front();
    const QString text =
        isValue ? ValueText(first, record, m_editor.Attributes().ControlsOf(first)) : QString();
    clip.name = clip.isWhole ? m_name : std::string();
    // One custom field is a text like any other.
    const bool isText = isValue && first.attribute == Attribute::CustomFields;
    QGuiApplication::clipboard()->setMimeData(
        MimeOf(isText ? std::nullopt : std::optional(std::move(clip)), text).release());
    Q_EMIT m_editor.StatusText(MaterialEditor::tr("%1 copied.").arg(piece.title));
}

bool ClipboardFlow::MayChange(const TouchedRow& row) const
{
    const auto controls = m_editor.Attributes().ControlsOf(row);
    // The reference of an alpha test waits for one.
    return controls.empty() || controls.front()->isEnabled() ||
           row.attribute == Attribute::AlphaTestReference;
}

std::optional<ClipboardFlow::Ready> ClipboardFlow::Pasted(const MaterialPiece& piece) const
{
    const ClipReading reading = ReadClip(QGuiApplication::clipboard()->mimeData());
    Ready edit{RowsFor(piece, reading)};
    if (piece.kind == Kind::Whole && reading.clip && reading.clip->isWhole) {
        edit.isWhole = true;
        edit.name = reading.clip->name;
    } else {
        std::erase_if(edit.rows, [this](const EditedRow& row) {
            return !MayChange({row.attribute, row.element});
        });
    }
    if (edit.rows.empty()) {
        return std::nullopt;
    }
    edit.title = piece.kind == Kind::Whole && !edit.isWhole ? TitleOf(edit.rows) : piece.title;
    return edit;
}

ClipboardFlow::Ready ClipboardFlow::Factory(const MaterialPiece& piece) const
{
    Ready edit{{}, false, {}, piece.title};
    for (const TouchedRow& row : piece.rows) {
        if (MayChange(row)) {
            edit.rows.push_back({row.attribute, row.element,
                                 ValueOf(row.attribute, row.element, CorvexDB::udtMaterial())});
        }
    }
    return edit;
}

std::optional<ClipboardFlow::Ready> ClipboardFlow::Remembered(const MaterialPiece& piece)
{
    Ready edit{{}, false, {}, piece.title};
    std::string plugin = m_editor.Attributes().SelectedPlugin();
    for (const TouchedRow& row : piece.rows) {
        if (auto value = m_savedState.Remembered(row, plugin); value && MayChange(row)) {
            if (row.attribute == Attribute::Plugin) {
                plugin = std::get<std::string>(*value);  // its parameters follow
            }
            edit.rows.push_back({row.attribute, row.element, std::move(*value)});
        }
    }
    return edit.rows.empty() ? std::nullopt : std::optional(std::move(edit));
}

void ClipboardFlow::Make(const Ready& edit)
{
    CorvexDB::udtMaterial record = m_editor.Gatherer().Whole();
    TakeRows(record, edit.rows);
    TouchedRows touched;
    for (const EditedRow& row : edit.rows) {
        touched.push_back({row.attribute, row.element});
    }
    const auto show = [&] { m_editor.Attributes().ShowRecord(record); };
    if (edit.isWhole) {
        m_editor.EditWhole(std::move(touched), show, edit.name);
    } else {
        m_editor.EditAtOnce(touched, show);
    }
}

void ClipboardFlow::Paste(const MaterialPiece& piece)
{
    const ClipReading reading = ReadClip(QGuiApplication::clipboard()->mimeData());
    if (const auto edit = Pasted(piece)) {
        Make(*edit);
        Q_EMIT m_editor.StatusText(
            (MaterialEditor::tr("%1 pasted. %2").arg(edit->title, reading.problem)).trimmed());
    } else {
        Q_EMIT m_editor.StatusText(
            (MaterialEditor::tr("There is no material on the clipboard. %1").arg(reading.problem))
                .trimmed());
    }
}

}  // namespace CorvexMaterial
