#include "CDlgTile.h"

#include "PanelControls.h"
#include "ResourceIds.h"
#include "TileGeometry.h"
#include "vellcolor/KTEffectTile.h"

using namespace PanelControls;

namespace {

struct Choice {
    int id;
    int code;
};
// Both lists are tested in this order; the last checked one wins.
const Choice kShapes[] = {{IDC_TILE_SQUARE, kTileSquare},
                          {IDC_TILE_BRICK, kTileSquare},
                          {IDC_TILE_CIRCLE, kTileCircle},
                          {IDC_TILE_TRIANGLE, kTileTriangle},
                          {IDC_TILE_HEXAGON, kTileHexagon}};
const Choice kColorings[] = {{IDC_TILE_ALTERNATE, 0},
                             {IDC_TILE_RANDOM, 1},
                             {IDC_TILE_BETWEEN_RGB, 2},
                             {IDC_TILE_BETWEEN, 3},
                             {IDC_TILE_ORIGINAL, 4}};

}  // namespace

CDlgTile::CDlgTile() : Dialog(IDD_TILE), seamColor(255, 255, 255) {}

BOOL CDlgTile::OnInitDialog() {
    SetChecked(hwnd(), IDC_TILE_SQUARE, true);
    SetSpin(hwnd(), IDC_TILE_BLOCK_SPIN, 1, 256, 10);
    SetBar(hwnd(), IDC_TILE_ASPECT, 1, 20, 10);
    SetBar(hwnd(), IDC_TILE_CORNER_CUT, 0, 10, 0);
    SetSpin(hwnd(), IDC_TILE_ANGLE_SPIN, -90, 90, 0);
    SetSpin(hwnd(), IDC_TILE_SEAM_SPIN, 0, 64, 1);
    seamColor = ColorRGB(255, 255, 255);
    SetChecked(hwnd(), IDC_TILE_ALTERNATE, true);
    UpdateEnabling();
    return TRUE;
}

void CDlgTile::CollectParameters(KTEffectTile& tile) const {
    if (hwnd() == nullptr) return;
    int shape = kTileSquare;
    for (const Choice& c : kShapes) {
        if (IsChecked(hwnd(), c.id)) shape = c.code;
    }
    const int seam = ReadInt(hwnd(), IDC_TILE_SEAM);
    const int block = ReadInt(hwnd(), IDC_TILE_BLOCK);
    const bool brick = IsChecked(hwnd(), IDC_TILE_BRICK);
    const float height =
        TileHeight(shape, brick, block, seam, BarPosition(hwnd(), IDC_TILE_ASPECT));
    int coloring = 0;
    for (const Choice& c : kColorings) {
        if (IsChecked(hwnd(), c.id)) {
            coloring = c.code;
            break;
        }
    }

    tile.SetShape(shape);
    tile.SetSeamWidth(static_cast<float>(seam));
    tile.SetTileSize(static_cast<float>(block), height);
    tile.SetCorner(IsChecked(hwnd(), IDC_TILE_ROUND) ? 1 : 0,
                   BarPosition(hwnd(), IDC_TILE_CORNER_CUT) / 10.0f);
    tile.SetTransparentSeam(IsChecked(hwnd(), IDC_TILE_TRANSPARENT_SEAM) ? 1 : 0);
    tile.SetRowShift(brick ? 0.5f : 0.0f);
    tile.SetAngle(static_cast<float>(ReadInt(hwnd(), IDC_TILE_ANGLE)));
    tile.SetColoring(coloring);
    tile.SetSeamColor(seamColor);
}

void CDlgTile::OnSeamColor() {
    if (PickColor(hwnd(), &seamColor)) InvalidateRect(Item(IDC_TILE_SEAM_COLOR), nullptr, TRUE);
}

void CDlgTile::UpdateEnabling() const {
    // A transparent seam has no color to choose.
    Enable(hwnd(), {IDC_TILE_SEAM_COLOR_LABEL, IDC_TILE_SEAM_COLOR},
           !IsChecked(hwnd(), IDC_TILE_TRANSPARENT_SEAM));
}

BOOL CDlgTile::PreTranslateMessage(MSG* msg) {
    if (ForwardSpaceKey(hwnd(), msg)) return TRUE;
    UpdateEnabling();
    return Dialog::PreTranslateMessage(msg);
}

bool CDlgTile::OnMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    switch (msg) {
        case WM_HSCROLL: OnBarScroll(wParam, lParam); return true;
        case WM_DRAWITEM:
            if (wParam != IDC_TILE_SEAM_COLOR) return false;
            PaintColorButton(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem, seamColor);
            *result = TRUE;
            return true;
        case WM_COMMAND:
            if (HIWORD(wParam) != BN_CLICKED) return false;
            if (LOWORD(wParam) == IDC_TILE_SEAM_COLOR) OnSeamColor();
            UpdateEnabling();
            return true;
        default: return false;
    }
}
