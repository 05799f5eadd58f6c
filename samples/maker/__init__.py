"""What make_samples.py draws and writes the sample models with."""
