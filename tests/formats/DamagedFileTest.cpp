#include "Exchange.h"
#include "SampleFolder.h"
#include <CorvexMaterial/Status.h>

namespace {

using CorvexMaterial::Error;
using CorvexMaterial::Status;
using CorvexTest::Import;

class DamagedMaterials : public testing::Test {
protected:
    std::string Write(const char* name, const QByteArray& bytes) const
    {
        return m_folder.Write(name, bytes).toStdString();
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

    CorvexTest::SampleFolder m_folder;
};

TEST_F(DamagedMaterials, AnImporterThatCrashesOrHangsCostsNoMoreThanAMessage)
{
    for (const char* script : {"#!/bin/sh\nkill -SEGV $$\n", "#!/bin/sh\nexec sleep 60\n"}) {
        studio::ImportProgram program{m_folder.PathOf("importer"), std::chrono::seconds(60)};
        program.cancelled = [asked = 0]() mutable { return ++asked > 3; };
        QFile::remove(program.path);
        Write("importer", script);
        QFile::setPermissions(program.path, QFile::ReadOwner | QFile::ExeOwner);
        studio::Report report;
        EXPECT_THROW(static_cast<void>(studio::ImportMaterials(CorvexTest::SampleFile("worn.gltf"),
                                                               report, program)),
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
    says("model.fbx", "x", "cannot be opened");
    says("cut.mtlx", "<?xml version=\"1.0\"?><materialx version=\"1.38\"><look", "damaged: line");
    says("other.mtlx", "<svg/>", "no MaterialX");
    says("bomb.mtlx",
         "<!DOCTYPE m [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]>"
         "<materialx><x>&b;</x></materialx>",
         "document type");
    says("deep.mtlx", QByteArray("<materialx>").repeated(1000), "nested too deep");
    says("text.gltf", "no model", "text.gltf");
    EXPECT_THROW(static_cast<void>(Import(m_folder.PathOf("missing.mtl").toStdString())), Error);
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
