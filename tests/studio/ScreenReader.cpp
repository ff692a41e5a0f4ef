// Reads the running studio as a screen reader does, over the desktop's accessibility bus: what the
// keyboard reaches has a name and a role, what has a number tells it, the scene tells its selection
// and from where it is seen. Prints what is missing.
#include <atspi/atspi.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
using Node = std::unique_ptr<AtspiAccessible, Unref>;

std::string Taken(gchar* text)
{
    std::string taken = text != nullptr ? text : "";
    g_free(text);
    return taken;
}

class Reader {
public:
    void Walk(AtspiAccessible* node, int depth)
    {
        Look(node);
        const int children = depth < kDeepest ? atspi_accessible_get_child_count(node, nullptr) : 0;
        for (int i = 0; i < children && i < kMostChildren; ++i) {
            if (const Node child(atspi_accessible_get_child_at_index(node, i, nullptr)); child) {
                Walk(child.get(), depth + 1);
            }
        }
    }
    [[nodiscard]] bool IsContent() const
    {
        if (!m_sawScene) {
            std::cout << "no scene that tells its selection and its view\n";
        }
        if (m_numbers == 0) {
            std::cout << "no control with a number\n";
        }
        std::cout << m_reached << " controls read\n";
        return m_complaints == 0 && m_sawScene && m_numbers > 0;
    }

private:
    static constexpr int kDeepest = 40;
    static constexpr int kMostChildren = 60;  // a list may have thousands

    void Look(AtspiAccessible* node)
    {
        const AtspiRole role = atspi_accessible_get_role(node, nullptr);
        const std::string name = Taken(atspi_accessible_get_name(node, nullptr));
        const std::string description = Taken(atspi_accessible_get_description(node, nullptr));
        const std::unique_ptr<AtspiStateSet, Unref> states(atspi_accessible_get_state_set(node));
        const auto is = [&](AtspiStateType state) {
            return states != nullptr && atspi_state_set_contains(states.get(), state) != 0;
        };
        m_sawScene = m_sawScene || (role == ATSPI_ROLE_CANVAS && name == "Scene" &&
                                    description.find("elect") != std::string::npos &&
                                    description.find("Yaw") != std::string::npos);
        if (!is(ATSPI_STATE_FOCUSABLE) || !is(ATSPI_STATE_SHOWING)) {
            return;
        }
        ++m_reached;
        if (name.empty()) {
            Complain(node, "has no name");
        }
        if (role == ATSPI_ROLE_INVALID || role == ATSPI_ROLE_UNKNOWN) {
            Complain(node, "has no role");
        }
        if (role == ATSPI_ROLE_SLIDER || role == ATSPI_ROLE_SPIN_BUTTON) {
            ++m_numbers;
            const std::unique_ptr<AtspiValue, Unref> value(atspi_accessible_get_value_iface(node));
            if (value == nullptr) {
                Complain(node, "has no value");
            }
        }
    }
    void Complain(AtspiAccessible* node, const char* what)
    {
        ++m_complaints;
        std::cout << Taken(atspi_accessible_get_role_name(node, nullptr)) << " \""
                  << Taken(atspi_accessible_get_name(node, nullptr)) << "\" " << what << '\n';
    }

    int m_complaints = 0;
    int m_reached = 0;
    int m_numbers = 0;
    bool m_sawScene = false;
};

/// Null while it is not there.
Node Application(const std::string& name)
{
    const Node desktop(atspi_get_desktop(0));
    const int count = atspi_accessible_get_child_count(desktop.get(), nullptr);
    for (int i = 0; i < count; ++i) {
        Node application(atspi_accessible_get_child_at_index(desktop.get(), i, nullptr));
        if (application && Taken(atspi_accessible_get_name(application.get(), nullptr)) == name &&
            atspi_accessible_get_child_count(application.get(), nullptr) > 0) {
            return application;
        }
    }
    return nullptr;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: PROGRAM NAME\n";
        return 2;
    }
    const pid_t studio = fork();
    if (studio == 0) {
        setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1", 1);
        execl(argv[1], argv[1], nullptr);
        _exit(127);
    }
    atspi_init();
    Node application;
    for (int tries = 0; tries < 200 && !application; ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        application = Application(argv[2]);
    }
    // Its panel opens after its window.
    std::this_thread::sleep_for(std::chrono::seconds(application ? 2 : 0));
    Reader reader;
    if (application) {
        reader.Walk(application.get(), 0);
    }
    const bool content = reader.IsContent();
    kill(studio, SIGTERM);
    waitpid(studio, nullptr, 0);
    return content ? 0 : 1;
}
