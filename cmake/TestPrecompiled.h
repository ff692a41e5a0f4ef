// What nearly every test of widgets and pictures includes; the two test headers alone cost more
// than a test's own code.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QString>
#include <QWidget>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>
