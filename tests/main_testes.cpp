// Ponto de entrada comum dos testes: uma QApplication (plataforma "offscreen" pelo CTest), para que
// fontes, imagens e widgets funcionem como num programa de verdade.
#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
