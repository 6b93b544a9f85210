#pragma once

#include "core/Error.h"

#include <QStringList>

#include <cstdio>

namespace nubo::cli {

// Exit codes of every command.
enum Exit { success = 0, failure = 1, badUsage = 2 };

// Whether the arguments name a command that runs without the tray
// application (help, version and the headless subcommands).
bool isHeadless(const QStringList& arguments);

// Whether a headless command may draw text (and so needs fonts).
bool needsFonts(const QStringList& arguments);
// Whether the command needs the window system's screens.
bool needsScreens(const QStringList& arguments);

// Runs a headless command; arguments exclude the program name.
int run(const QStringList& arguments);
// The command that starts this program, as users run it (the small
// `nuboshot` in front of it, when it started this one).
QString programPath();

// Output helpers: one line each, UTF-8.
void print(const QString& text, std::FILE* stream = stdout);
int fail(const QString& message);
int usage(const QString& message, const QString& helpCommand = {});
// One line for an engine error; archive errors name their case and detail.
int failWith(const Error& error);

} // namespace nubo::cli
