#include "tests/speed/OpenedWindow.h"

#include "storage/SheetFile.h"
#include "tests/speed/SampleClass.h"
#include "window/Menu.h"

namespace quorvel {

namespace {

Places placesOfProgram() {
    Places places;
    places.programFolder = "/Quorvel";
    return places;
}

}  // namespace

OpenedWindow::OpenedWindow(Canvas& canvas, int students, int assignments)
    : form_({dialogs_, files_, printer_, canvas, clock_, shell_}, placesOfProgram(),
            CodePage::windows1252()) {
    writeSheet(files_, file, sampleClass(students, assignments));
    form_.start();
    form_.chooseMenu(menuItemIndex("mnuOpen"));
}

void OpenedWindow::clickCell(int row, int column) {
    const Rectangle& grid = form_.layout().gridCanvas;
    form_.Form_MouseDown(grid.left + columnPitch * column + 5, rowPitch * (row + 1) + 5);
}

}  // namespace quorvel
