#pragma once
/// \file
/// Pontos e retângulos de tela, em pixels, com y crescendo para baixo.
///
/// Largura de um `TRect` é `Right - Left` e altura `Bottom - Top`: o canto direito e o inferior
/// não pertencem ao retângulo ao pintar, e as contas dos elementos dependem disso. Não use
/// `QRect` em algoritmos: o `right()` dele é `left + width - 1`. Converta só ao pintar.

#include <QPoint>
#include <QRect>

namespace tavru {

/// Ponto de tela, em pixels.
struct TPoint
{
    int X = 0;
    int Y = 0;

    constexpr TPoint() = default;
    constexpr TPoint(int x, int y) : X(x), Y(y) {}

    friend constexpr bool operator==(const TPoint &a, const TPoint &b) { return a.X == b.X && a.Y == b.Y; }
    friend constexpr bool operator!=(const TPoint &a, const TPoint &b) { return !(a == b); }

    QPoint ParaQPoint() const { return QPoint(X, Y); }
};

/// Retângulo de tela, em pixels: `Left`, `Top`, `Right`, `Bottom`. Não é normalizado sozinho.
struct TRect
{
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    constexpr TRect() = default;
    constexpr TRect(int l, int t, int r, int b) : Left(l), Top(t), Right(r), Bottom(b) {}
    constexpr TRect(const TPoint &tl, const TPoint &br) : Left(tl.X), Top(tl.Y), Right(br.X), Bottom(br.Y) {}

    constexpr int Width() const { return Right - Left; }
    constexpr int Height() const { return Bottom - Top; }
    constexpr TPoint TopLeft() const { return TPoint(Left, Top); }
    constexpr TPoint BottomRight() const { return TPoint(Right, Bottom); }

    friend constexpr bool operator==(const TRect &a, const TRect &b)
    {
        return a.Left == b.Left && a.Top == b.Top && a.Right == b.Right && a.Bottom == b.Bottom;
    }
    friend constexpr bool operator!=(const TRect &a, const TRect &b) { return !(a == b); }

    /// O retângulo de Qt que cobre os mesmos pixels (largura `Right - Left`).
    QRect ParaQRect() const { return QRect(Left, Top, Right - Left, Bottom - Top); }
};

/// `Rect(l, t, r, b)` da plataforma.
constexpr TRect Rect(int l, int t, int r, int b) { return TRect(l, t, r, b); }
/// `Point(x, y)` da plataforma.
constexpr TPoint Point(int x, int y) { return TPoint(x, y); }

} // namespace tavru
