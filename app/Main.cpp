#include <cstdio>

int main() {
    std::puts("murbo");
    return 1;
}
