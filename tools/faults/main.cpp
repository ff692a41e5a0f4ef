// corvex-faults check TREE             whether each place of the list is there exactly once
// corvex-faults seed TREE COPY         a copy of the tree with all faults in it
// corvex-faults try COPY BUILD [N...]  tries the faults, or those of these numbers
#include "FaultList.h"
#include "FaultTrial.h"

#include <QDir>

#include <atomic>
#include <cstdio>
#include <map>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace {

using faults::Fault;

struct Tally {
    int caught = 0;
    int all = 0;
};

void Print(const QString& text)
{
    std::puts(text.toUtf8().constData());
    std::fflush(stdout);
}

int Check(const std::vector<Fault>& list, const QString& tree)
{
    const QStringList problems = ProblemsOf(list, tree);
    for (const QString& problem : problems) {
        Print(problem);
    }
    return problems.isEmpty() ? 0 : 1;
}

// A suite that fails anyway would tell of everything.
void ExpectSound(const std::vector<Fault>& list, const faults::FaultTrial& trial)
{
    QStringList suites;
    for (const Fault& fault : list) {
        suites += fault.suites;
    }
    suites.removeDuplicates();
    if (const auto failed = trial.Caught(0, suites)) {
        throw std::runtime_error(failed->toStdString() + " fails without any fault");
    }
}

int Try(const std::vector<Fault>& list, const faults::FaultTrial& trial)
{
    ExpectSound(list, trial);
    std::map<QString, Tally> buildings;
    std::mutex mutex;
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t i = next++; i < list.size(); i = next++) {
            const Fault& fault = list[i];
            const auto by = trial.Caught(fault.number, fault.suites);
            const std::lock_guard lock(mutex);
            for (Tally* tally :
                 {&buildings[fault.Building()], &buildings[QStringLiteral("~ all")]}) {
                ++tally->all;
                tally->caught += by ? 1 : 0;
            }
            Print(QStringLiteral("%1 %2 %3: %4")
                      .arg(fault.number)
                      .arg(by ? *by : QStringLiteral("UNSEEN"), fault.file, fault.stands));
        }
    };
    std::vector<std::thread> workers;
    for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i) {
        workers.emplace_back(work);
    }
    for (std::thread& worker : workers) {
        worker.join();
    }
    for (const auto& [building, tally] : buildings) {
        Print(QStringLiteral("%1  %2 of %3").arg(building, -20).arg(tally.caught).arg(tally.all));
    }
    return 0;
}

int Run(const QStringList& arguments)
{
    const QString verb = arguments.value(0);
    const QString tree = QDir(arguments.value(1)).absolutePath();
    std::vector<Fault> list = faults::ReadFaults(tree);
    if (verb == QStringLiteral("check") && arguments.size() == 2) {
        return Check(list, tree);
    }
    if (verb == QStringLiteral("seed") && arguments.size() == 3) {
        Seed(list, tree, QDir(arguments[2]).absolutePath());
        return Check(list, tree);
    }
    if (verb == QStringLiteral("try") && arguments.size() >= 3) {
        const QStringList wanted = arguments.mid(3);
        std::erase_if(list, [&](const Fault& fault) {
            return !wanted.isEmpty() && !wanted.contains(QString::number(fault.number));
        });
        return Try(list, faults::FaultTrial(QDir(arguments[2]).absolutePath()));
    }
    throw std::runtime_error(
        "Usage: corvex-faults check TREE | seed TREE COPY | try COPY BUILD [N...]");
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        QStringList arguments;
        for (int i = 1; i < argc; ++i) {
            arguments << QString::fromLocal8Bit(argv[i]);
        }
        return Run(arguments);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "corvex-faults: %s\n", error.what());
        return 2;
    }
}
