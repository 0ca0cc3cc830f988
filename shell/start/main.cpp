#include "Start.h"

int main(int /*argumentCount*/, char** arguments) {
    return folimark::_Main(arguments);
}
