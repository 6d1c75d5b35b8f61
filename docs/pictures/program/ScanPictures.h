#pragma once

class Camera;
class T4ZelkaBrowser;

/// A scan of the demo network, with a node that has fallen silent, the list of its buses, and the windows
/// that save what it has found.
void TakeScanDialogs(T4ZelkaBrowser& browser, const Camera& camera);
