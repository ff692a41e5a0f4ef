// What POV-Ray needs for each material of a library, and the viewport's picture beside its own.
//
//     stock_materials_benchmark [--limit SECONDS] [--named PATTERN] [--keep FOLDER]
//                               [--sheet PICTURE.png] [LIBRARY.cvm]

#include "DefaultScene.h"
#include "LibraryFile.h"
#include "LibraryReading.h"
#include "NamedMaterials.h"
#include "ParametricMesh.h"
#include "RenderService.h"
#include "StudioScene.h"
#include "StudioSceneExporter.h"
#include "TextureCache.h"

#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

#include <sys/resource.h>

namespace {

constexpr int kSide = 256;

studio::RaytraceScene SphereOf(const CorvexDB::udtMaterial& material)
{
    studio::FrameItem item;
    item.mesh = studio::SphereMesh(1.0F);
    item.material = std::make_shared<CorvexDB::udtMaterial>(material);
    item.coordinates = CorvexSG::CoordinateMode::FromWrap;
    studio::RaytraceScene scene;
    scene.frame.items.push_back(std::move(item));
    scene.frame.camera.yawDegrees = 25.0F;
    scene.frame.camera.pitchDegrees = 18.0F;
    scene.frame.camera = studio::Framed(scene.frame.camera, scene.frame.items);
    scene.frame.width = scene.frame.height = kSide;
    scene.frame.samples = 4;
    return scene;
}

/// What the studio starts with.
studio::RaytraceScene DefaultScene(const std::string& library)
{
    studio::StudioScene scene;
    scene.SetShapes(studio::DefaultShapes(studio::NamedMaterialsOf(library)));
    scene.SetView({studio::DefaultCamera(), 0x5A504A, studio::Backdrop::Gradient, {900, 600}});
    return studio::RaytraceSceneOf(scene, {});
}

double ChildSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1.0e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

struct Row {
    QString name;
    QImage drawn;
    QImage raytraced;      ///< null when it did not end in time
    double seconds = 0.0;  ///< of processor time
};

class Bench {
public:
    /// Scenes and pictures stay in the folder if one is named.
    Bench(int limit, const QString& kept) : m_folder(kept.isEmpty() ? m_temporary.path() : kept)
    {
        m_povray.setWorkingDirectory(m_folder);
        m_povray.setChildProcessModifier([limit] {
            const auto seconds = static_cast<rlim_t>(limit);
            const rlimit most{seconds, seconds};
            setrlimit(RLIMIT_CPU, &most);
        });
    }

    Row Measured(const QString& name, const studio::RaytraceScene& scene)
    {
        const QString base = QString(name).remove(QRegularExpression("[^A-Za-z]"));
        const QString file = QDir(m_folder).filePath(base + ".pov");
        const auto textures = [this](const std::string& path) {
            return m_rendering.Textures().Await(path);
        };
        studio::WriteRaytraceScene(file, scene, textures, studio::ImagesBeside(file));
        const double before = ChildSeconds();
        const QString picture = QDir(m_folder).filePath(base + ".png");
        QFile::remove(picture);
        m_povray.start("povray", {"+I" + base + ".pov", "+O" + base + ".png", "+FN",
                                  QString("+W%1").arg(scene.frame.width),
                                  QString("+H%1").arg(scene.frame.height), "+Q11", "+A0.1", "+R2",
                                  "-D", "+WT1"});
        m_povray.waitForFinished(-1);
        const bool ended = m_povray.exitStatus() == QProcess::NormalExit;
        return {name, m_rendering.DrawNow(studio::Frame(scene.frame)),
                ended ? QImage(picture) : QImage(), ChildSeconds() - before};
    }

private:
    QTemporaryDir m_temporary;
    QString m_folder;
    QProcess m_povray;
    studio::RenderService m_rendering;
};

QImage Sheet(const std::vector<Row>& rows)
{
    constexpr int kColumns = 4;
    constexpr int kCaption = 16;
    const QSize cell(2 * kSide, kSide + kCaption);
    const int lines = (static_cast<int>(rows.size()) + kColumns - 1) / kColumns;
    QImage sheet(kColumns * cell.width(), lines * cell.height(), QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
        const Row& row = rows[static_cast<std::size_t>(i)];
        const QPoint corner(i % kColumns * cell.width(), i / kColumns * cell.height());
        painter.drawImage(corner, row.drawn);
        painter.drawImage(corner + QPoint(kSide, 0), row.raytraced);
        painter.drawText(QRect(corner + QPoint(0, kSide), QSize(cell.width(), kCaption)),
                         Qt::AlignCenter,
                         QStringLiteral("%1: %2 s").arg(row.name).arg(row.seconds, 0, 'f', 2));
    }
    return sheet;
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QCommandLineParser options;
    const QCommandLineOption limit("limit", {}, "seconds", "60");
    const QCommandLineOption sheet("sheet", {}, "picture");
    const QCommandLineOption named("named", {}, "text");
    const QCommandLineOption keep("keep", {}, "folder");
    options.addOptions({limit, sheet, named, keep});
    options.addPositionalArgument("library", {});
    options.process(application);
    const QString file = options.positionalArguments().value(0, STOCK_LIBRARY);
    auto library = studio::LibraryFile::Open(file.toStdString(), studio::LibraryKind::Materials);
    Bench bench(options.value(limit).toInt(), options.value(keep));
    std::vector<Row> rows;
    for (std::int32_t i = 0; i < library.Count(); ++i) {
        const QString name = QString::fromStdString(library.NameAt(i));
        if (!name.contains(QRegularExpression(options.value(named)))) {
            continue;
        }
        rows.push_back(bench.Measured(name, SphereOf(studio::ReadMaterial(library, i).material)));
        std::printf("%-22s %6.2f s%s\n", rows.back().name.toUtf8().constData(), rows.back().seconds,
                    rows.back().raytraced.isNull() ? ", not finished" : "");
        std::fflush(stdout);
    }
    const auto over = [&](double seconds) {
        return static_cast<int>(std::count_if(
            rows.begin(), rows.end(), [&](const Row& row) { return row.seconds > seconds; }));
    };
    if (!options.isSet(named)) {
        const Row scene = bench.Measured("Default scene", DefaultScene(file.toStdString()));
        std::printf("%s at 900 x 600: %.2f s%s\n", scene.name.toUtf8().constData(), scene.seconds,
                    scene.raytraced.isNull() ? ", not finished" : "");
    }
    std::printf("processor time at %d x %d: %d of %zu materials over 1 s, %d over 5 s\n", kSide,
                kSide, over(1.0), rows.size(), over(5.0));
    return options.isSet(sheet) && !Sheet(rows).save(options.value(sheet)) ? 1 : 0;
}
