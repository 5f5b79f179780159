# ci-windows-picture.ps1 PROGRAM FOLDER PICTURE: starts the program with the folder and saves what the screen then shows.
param([string]$Program, [string]$Folder, [string]$Picture)
$ErrorActionPreference = 'Stop'
Add-Type -AssemblyName System.Windows.Forms, System.Drawing

$process = Start-Process -FilePath $Program -ArgumentList "`"$Folder`"" -PassThru
try {
  for ($i = 0; $i -lt 60 -and $process.MainWindowHandle -eq 0; ++$i) {
    Start-Sleep -Milliseconds 500
    $process.Refresh()
    if ($process.HasExited) { throw "$Program has ended with $($process.ExitCode)" }
  }
  if ($process.MainWindowHandle -eq 0) { throw "$Program shows no window" }
  Start-Sleep -Seconds 3  # for the rows
  $screen = [System.Windows.Forms.Screen]::PrimaryScreen.Bounds
  $bitmap = New-Object System.Drawing.Bitmap $screen.Width, $screen.Height
  [System.Drawing.Graphics]::FromImage($bitmap).CopyFromScreen($screen.Location, [System.Drawing.Point]::Empty, $screen.Size)
  $bitmap.Save($Picture, [System.Drawing.Imaging.ImageFormat]::Png)
} finally {
  if (-not $process.HasExited) { $process.Kill() }
}
