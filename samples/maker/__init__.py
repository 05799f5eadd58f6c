"""The modules that make_samples.py uses to draw and write the sample models."""
