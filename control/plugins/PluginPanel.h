#pragma once

#include "ColourTrial.h"
#include "PluginEntry.h"
#include <CorvexMaterial/CorvexCommon.h>
#include <CorvexMaterial/CorvexDB.h>
#include <CorvexMaterial/Prompts.h>

#include <QWidget>

#include <optional>
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;

namespace CorvexMaterial {

class PluginRow;
class Trap;

/// The plug-in list and one row per parameter of the chosen plug-in, ten at most. What a plug-in
/// does wrong becomes an Error that names it, and the panel keeps what it showed. Of more than ten
/// parameters ten are shown; who asks for the values is told.
class PluginPanel : public QWidget {
    Q_OBJECT

public:
    /// All of the arguments outlive the panel.
    PluginPanel(const Trap& trap, CorvexDB::PluginTable& plugins,
                CorvexCommon::NumericValidation& numbers, Choosers& choosers, Trial& trial,
                QWidget* parent);

    // Changes by program: none of them emits a signal.

    /// Leaves the entry "None" alone, chosen.
    void Clear();
    void Add(const std::string& name);
    /// Chooses the plug-in and shows its defaults; an empty or "None" name is entry 0. One that is
    /// not listed is missing: its name and values are kept and given back, until another entry is
    /// chosen.
    void SelectName(const std::string& name);
    /// Asks the chosen plug-in for its parameters and shows element i in row i; a value beyond an
    /// editor's ends becomes the nearest that it can show. Errors: SubscriptOutOfRange for fewer
    /// values than parameters, and, after showing ten, for more than ten parameters;
    /// InvalidArgument for numbers that are none; what the plug-in throws. A missing plug-in takes
    /// them all.
    void Display(const std::vector<float>& values);
    /// Chooses a plug-in and shows stored values in one step; a missing or unusable one becomes the
    /// parameter's default. For materials that come from a file, of whatever age.
    void Restore(const std::string& name, const std::vector<float>& values);
    /// The same with texts, for the plug-in that is chosen.
    void ShowTexts(const std::vector<std::string>& texts);

    /// The chosen entry as it is listed, "None" included, or the missing plug-in's name.
    [[nodiscard]] std::string ListText() const;
    /// Empty when no plug-in is chosen; a missing one has its name.
    [[nodiscard]] std::string SelectedName() const;
    /// Gives the array ten elements and fills them, 0 beyond the parameters. After an error those
    /// before it are filled. Errors: SubscriptOutOfRange at the eleventh parameter,
    /// ConversionFailed when a text is no number, what the plug-in throws.
    void ReadValues(std::vector<float>& values);
    [[nodiscard]] std::size_t ParameterCount() const;
    [[nodiscard]] QComboBox& List() { return *m_list; }
    /// Of all parameters, those that are hidden now too.
    [[nodiscard]] std::vector<QWidget*> Editors() const;
    /// Of the rows shown, one element each. Nothing here asks the plug-in.
    [[nodiscard]] std::vector<float> Defaults() const;
    [[nodiscard]] std::vector<std::string> DefaultTexts() const;
    [[nodiscard]] std::vector<std::string> ParameterTexts() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user changed one value.
    void Edited();
    /// The user chose an entry; its defaults are shown.
    void PluginChosen();
    /// The plug-in of this name is to be shown and is not there.
    void PluginMissing(const QString& name);
    void RememberPressed();
    void ResetPressed();
    void ResetUserPressed();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    /// What a material says of a plug-in that is not there.
    struct Missing {
        std::string name;
        std::vector<float> values;
    };

    void MakeRows();
    void MakeButtons();
    [[nodiscard]] PluginEntry EntryAt(int position) const;
    [[nodiscard]] int PositionOf(const std::string& name) const;
    [[nodiscard]] std::vector<CorvexDB::PluginParameter> Ask(int position);
    void Choose(int position);
    void Show(int position, const std::vector<CorvexDB::PluginParameter>& parameters,
              const std::vector<float>& values);
    void ShowRows(const std::vector<CorvexDB::PluginParameter>& parameters,
                  const std::vector<float>& values);
    void ShowMissing(const std::string& name, const std::vector<float>& values);
    void ShowEntry(int position, std::optional<Missing> missing);
    void ConfirmNumber(PluginRow& row);
    void PickColour(PluginRow& row);
    [[nodiscard]] double Scale() const;
    [[nodiscard]] int ListHeight() const;
    [[nodiscard]] int ButtonTop() const;
    [[nodiscard]] std::vector<float> ShownValues() const;
    void PlaceWidgets();

    const Trap& m_trap;
    CorvexDB::PluginTable& m_plugins;
    CorvexCommon::NumericValidation& m_numbers;
    Trial& m_trial;
    ColourTrial m_colours;
    QComboBox* m_list = nullptr;
    QLabel* m_note = nullptr;
    std::vector<PluginRow*> m_rows;
    std::vector<QPushButton*> m_buttons;
    std::size_t m_shownRows = 0;
    int m_shownPosition = 0;
    std::optional<Missing> m_missing;
};

}  // namespace CorvexMaterial
