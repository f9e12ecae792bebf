#include "app/options/Ending.h"

#include <QCoreApplication>

int main(int count, char** words) {
    const QCoreApplication application(count, words);
    return murbo::Ending::failure("A session can't be driven by lines yet.");
}
