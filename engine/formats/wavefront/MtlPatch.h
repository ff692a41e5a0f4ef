#pragma once

#include "MtlFile.h"
#include "MtlWriting.h"

namespace studio {

/// A material's part of an MTL file, from newmtl on, on its way from what was read to what it is
/// now. Only what does not read as wanted is written, each statement on the line where it is.
class MtlPatch {
public:
    /// The file is in the folder. All of it outlives this.
    MtlPatch(std::string text, const std::string& folder, AlphaChannels& alpha);

    void Apply(const NamedMaterial& was, const NamedMaterial& now, Report& report);
    [[nodiscard]] const std::string& Text() const { return m_text; }

private:
    [[nodiscard]] MtlMaterial Parsed() const;
    [[nodiscard]] CorvexDB::udtMaterial Read() const;
    void WriteAmounts(const CorvexDB::udtMaterial& want);
    void WriteImages(const NamedMaterial& was, const NamedMaterial& now);
    /// As the writer has it; away with it where he has none.
    void Put(const std::string& keyword);
    void Put(const std::string& keyword, const MtlLine& line);
    void Remove(const std::string& keyword);
    void Insert(const MtlLine& line);

    std::string m_text;
    const std::string& m_folder;
    AlphaChannels& m_alpha;
    std::vector<MtlLine> m_written;
};

}  // namespace studio
