#include "tests/support/ChildProgram.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace quorvane {
namespace {

std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

ChildProgram::ChildProgram(const std::string& path, const std::vector<std::string>& arguments,
                           const std::string& errorFile,
                           const std::map<std::string, std::string>& environment)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, errorFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     0600);

    std::vector<std::string> words{path};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables;
    for (char** variable = environ; *variable != nullptr; ++variable) {
        const std::string text = *variable;
        if (!environment.contains(text.substr(0, text.find('='))))
            variables.push_back(text);
    }
    for (const auto& [name, value] : environment)
        variables.push_back(name + "=" + value);

    const int error = posix_spawn(&process_, path.c_str(), &files, nullptr, Pointers(words).data(),
                                  Pointers(variables).data());
    posix_spawn_file_actions_destroy(&files);
    close(ends[1]);
    output_ = ends[0];
    if (error != 0)
        throw std::runtime_error("cannot start " + path);
}

ChildProgram::~ChildProgram()
{
    if (process_ > 0) {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    close(output_);
}

std::string ChildProgram::NextLine()
{
    std::string line;
    char c = 0;
    while (read(output_, &c, 1) == 1 && c != '\n')
        line += c;
    return line;
}

std::string ChildProgram::RestOfOutput()
{
    std::string text;
    char chunk[4096];
    for (ssize_t length = 0; (length = read(output_, chunk, sizeof chunk)) > 0;)
        text.append(chunk, static_cast<std::size_t>(length));
    return text;
}

void ChildProgram::Signal(int number) const
{
    kill(process_, number);
}

int ChildProgram::Wait()
{
    if (process_ > 0) {
        int status = 0;
        waitpid(process_, &status, 0);
        process_ = -1;
        constexpr int kBySignal = 128;
        status_ = WIFEXITED(status) ? WEXITSTATUS(status) : kBySignal + WTERMSIG(status);
    }
    return status_;
}

} // namespace quorvane
