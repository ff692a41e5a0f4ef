#include "host/Status.h"
#include "tests/interchange/Exchange.h"
#include "tests/interchange/fuzz/FuzzEntry.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <random>

namespace {

using CorvexMaterial::Error;
using CorvexMaterial::Status;
using CorvexTest::Import;

QByteArray ContentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The same on every system, which the distributions of the library are not.
class Dice {
public:
    qsizetype Below(qsizetype limit)
    {
        return static_cast<qsizetype>(m_engine() % static_cast<std::uint32_t>(limit));
    }

    /// Cut, with other bytes, and with a piece of it where it does not belong.
    QByteArray Damaged(QByteArray bytes)
    {
        for (qsizetype changes = 1 + Below(6); changes > 0 && !bytes.isEmpty(); --changes) {
            const qsizetype at = Below(bytes.size());
            switch (Below(4)) {
            case 0:
                bytes.truncate(at);
                break;
            case 1:
                bytes.insert(Below(bytes.size()), bytes.mid(at, Below(200)));
                break;
            default:
                bytes[at] = static_cast<char>(Below(256));
            }
        }
        return bytes;
    }

private:
    std::mt19937 m_engine{20261124};
};

class DamagedMaterials : public testing::Test {
protected:
    std::string Write(const char* name, const QByteArray& bytes)
    {
        QFile file(m_folder.filePath(QLatin1String(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName().toStdString();
    }

    /// The message, which names the file.
    std::string Refusal(const char* name, const QByteArray& bytes)
    {
        const std::string path = Write(name, bytes);
        try {
            static_cast<void>(Import(path));
        } catch (const Error& error) {
            EXPECT_EQ(error.Code(), Status::FileFailed);
            EXPECT_NE(std::string(error.what()).find(name), std::string::npos) << error.what();
            return error.what();
        }
        ADD_FAILURE() << name << " was read";
        return {};
    }

    QTemporaryDir m_folder;
    Dice m_dice;
};

TEST_F(DamagedMaterials, GiveUsableMaterialsOrNone)
{
    constexpr int kRuns = 400;
    for (const QFileInfo& sample : QDir(INTERCHANGE_TEST_FILES).entryInfoList(QDir::Files)) {
        for (const FuzzTarget& target : kFuzzTargets) {
            if (sample.suffix().toStdString() != target.name) {
                continue;
            }
            const QByteArray good = ContentOf(sample.filePath());
            for (int run = 0; run < kRuns; ++run) {
                const QByteArray bytes = m_dice.Damaged(good);
                target.entry(std::as_bytes(
                    std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
            }
        }
    }
}

TEST_F(DamagedMaterials, GltfCostsNoMoreThanAMessage)
{
    const QByteArray good = ContentOf(QString::fromStdString(CorvexTest::SampleFile("worn.gltf")));
    for (int run = 0; run < 12; ++run) {
        const std::string path = Write("damaged.gltf", m_dice.Damaged(good));
        try {
            EXPECT_FALSE(Import(path).materials.empty());
        } catch (const Error& error) {
            EXPECT_EQ(error.Code(), Status::FileFailed);
        }
    }
    for (const char* script : {"#!/bin/sh\nkill -SEGV $$\n", "#!/bin/sh\nexec sleep 60\n"}) {
        studio::ImportProgram program{m_folder.filePath("importer"), std::chrono::seconds(60)};
        program.cancelled = [asked = 0]() mutable { return ++asked > 3; };
        QFile::remove(program.path);
        Write("importer", script);
        QFile::setPermissions(program.path, QFile::ReadOwner | QFile::ExeOwner);
        studio::Report report;
        EXPECT_THROW(static_cast<void>(studio::ImportMaterials(CorvexTest::SampleFile("worn.gltf"),
                                                               report, {program, {}})),
                     Error);
        EXPECT_TRUE(report.Rows().empty());
    }
}

TEST_F(DamagedMaterials, AreRefusedWithTheirCause)
{
    const auto says = [&](const char* name, const QByteArray& bytes, const char* cause) {
        const std::string message = Refusal(name, bytes);
        EXPECT_NE(message.find(cause), std::string::npos) << message;
    };
    says("empty.mtl", "", "no materials");
    says("many.mtl", QByteArray("newmtl a\n").repeated(100'001), "too many");
    says("model.fbx", "x", ".mtl, .gltf, .glb and .mtlx");
    says("cut.mtlx", "<?xml version=\"1.0\"?><materialx version=\"1.38\"><look", "damaged: line");
    says("other.mtlx", "<svg/>", "no MaterialX");
    says("bomb.mtlx",
         "<!DOCTYPE m [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]>"
         "<materialx><x>&b;</x></materialx>",
         "document type");
    says("deep.mtlx", QByteArray("<materialx>").repeated(1000), "nested too deep");
    says("text.gltf", "no model", "text.gltf");
    EXPECT_THROW(static_cast<void>(Import(m_folder.filePath("missing.mtl").toStdString())), Error);
}

TEST_F(DamagedMaterials, BranchedGraphsEndInTime)
{
    // Every node asks for the one below it twice: 2^60 ways through.
    QByteArray text = "<materialx version=\"1.38\">";
    for (int node = 0; node < 60; ++node) {
        const QByteArray below = "n" + QByteArray::number(node + 1);
        text += "<multiply name=\"n" + QByteArray::number(node) + "\" type=\"color3\">" +
                "<input name=\"in1\" type=\"color3\" nodename=\"" + below + "\"/>" +
                "<input name=\"in2\" type=\"color3\" nodename=\"" + below + "\"/></multiply>";
    }
    text += "<standard_surface name=\"s\" type=\"surfaceshader\">"
            "<input name=\"base_color\" type=\"color3\" nodename=\"n0\"/></standard_surface>"
            "</materialx>";
    const auto imported = Import(Write("branched.mtlx", text));
    EXPECT_EQ(CorvexTest::OutcomeFor(imported.report, "s", "base_color"), "approximated");
}

}  // namespace
