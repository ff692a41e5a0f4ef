#include "SampleLibrary.h"

#include "MaterialText.h"
#include "Thumbnailer.h"

#include <QPainter>
#include <QRadialGradient>

#include <array>
#include <stdexcept>

namespace {

constexpr std::array kNames{"Oak", "Gold", "Rose quartz", "Window glass", "Concrete", "Velvet"};

/// About as large as the picture of a lit ball.
std::string Picture()
{
    QImage image(128, 128, QImage::Format_RGB32);
    image.fill(QColor(74, 80, 90));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QRadialGradient light(48, 44, 70);
    light.setColorAt(0, QColor(250, 220, 160));
    light.setColorAt(1, QColor(120, 70, 20));
    painter.setBrush(light);
    painter.drawEllipse(8, 8, 112, 112);
    return studio::Thumbnailer::Png(image);
}

}  // namespace

studio::NewEntry SampleLibrary::Entry(int number)
{
    static const std::string picture = Picture();
    const auto which = static_cast<std::size_t>(number) % kNames.size();
    studio::NamedMaterial named{kNames.at(which) + (' ' + std::to_string(number)), {}};
    named.material.Color = (number * 7919) & 0xFFFFFF;
    named.material.Transparency = number % 101;
    named.material.Specular = number % 53;
    if (number % 5 == 0) {
        named.material.Textures.bump = "/textures/grain.png";
    }
    studio::NewEntry entry = studio::EntryOfMaterial(named, "/");
    entry.png = picture;
    return entry;
}

SampleLibrary::SampleLibrary(int entries)
{
    studio::LibraryFile::Create(Path(), studio::LibraryKind::Materials);
    auto library = studio::LibraryFile::Open(Path(), studio::LibraryKind::Materials);
    std::vector<studio::NewEntry> some;
    for (int number = 0; number < entries; ++number) {
        some.push_back(Entry(number));
        if (some.size() == 10000 || number + 1 == entries) {
            library.Add(some);
            some.clear();
        }
    }
    if (sqlite3_open(Path().c_str(), &m_bare) != SQLITE_OK) {
        throw std::runtime_error("cannot open " + Path());
    }
    sqlite3_exec(m_bare, "PRAGMA synchronous = EXTRA", nullptr, nullptr, nullptr);
}

SampleLibrary::~SampleLibrary()
{
    sqlite3_close(m_bare);
}

std::string SampleLibrary::Path() const
{
    return m_folder.filePath(QStringLiteral("sample.cvm")).toStdString();
}

BareStatement::BareStatement(sqlite3* handle, const char* sql)
{
    if (sqlite3_prepare_v2(handle, sql, -1, &m_statement, nullptr) != SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(handle));
    }
}

BareStatement& BareStatement::Bind(int parameter, std::int64_t value)
{
    sqlite3_bind_int64(m_statement, parameter, value);
    return *this;
}

BareStatement& BareStatement::Bind(int parameter, const std::string& text)
{
    sqlite3_bind_text(m_statement, parameter, text.data(), static_cast<int>(text.size()),
                      SQLITE_TRANSIENT);
    return *this;
}

QByteArray BareStatement::Bytes()
{
    sqlite3_step(m_statement);
    QByteArray bytes(static_cast<const char*>(sqlite3_column_blob(m_statement, 0)),
                     sqlite3_column_bytes(m_statement, 0));
    sqlite3_reset(m_statement);
    return bytes;
}

int BareStatement::Run()
{
    int rows = 0;
    int code = SQLITE_OK;
    while ((code = sqlite3_step(m_statement)) == SQLITE_ROW) {
        ++rows;
    }
    if (code != SQLITE_DONE) {
        throw std::runtime_error("a bare statement failed");
    }
    sqlite3_reset(m_statement);
    return rows;
}
