#include "picture/picture_capture.h"

namespace quorlin {

bool PictureCapture::ValidatePictureRect() const { return false; }
void PictureCapture::cmdGetPic_Click() {}
void PictureCapture::Form_Paint() {}

}  // namespace quorlin
