#include <unistd.h>

#include <iostream>
#include <string>
#include <vector>

#include "Commands.h"

int main(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    return ovela::tune::runTool(arguments, std::cout, std::cerr, isatty(STDOUT_FILENO) == 1);
}
